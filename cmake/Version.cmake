# Writes OUTPUT, which tells VERSION, BUILD_TYPE and the commit of SOURCE; a file that says the same stays as it is.
# The commit is that of these sources, and not of a folder above them.
cmake_path(GET SOURCE PARENT_PATH above)
set(ENV{GIT_CEILING_DIRECTORIES} ${above})
execute_process(COMMAND git -C ${SOURCE} describe --always --dirty OUTPUT_VARIABLE COMMIT
                OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE ignored)
configure_file(${SOURCE}/cli/Version.cpp.in ${OUTPUT} @ONLY)
