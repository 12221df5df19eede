# Installs the library into a folder of its own, builds the embedder's example against it, and runs it.
#   cmake -DBUILD=<build tree> -DSOURCE=<source tree> -DWORK=<scratch> -DCXX=<compiler> -DFLAGS=<flags> -P embed.cmake

function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGV}\n${output}")
  endif()
endfunction()

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)
run(${CMAKE_COMMAND} -S ${SOURCE}/examples/embed -B ${WORK}/build -DCMAKE_PREFIX_PATH=${WORK}/prefix
    -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_CXX_FLAGS=${FLAGS})
run(${CMAKE_COMMAND} --build ${WORK}/build)

execute_process(COMMAND ${WORK}/build/embed RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
if(NOT result EQUAL 0 OR NOT output STREQUAL "NANSI:NUMTYP=EX,NUMSE=100&&199;\n")
  message(FATAL_ERROR "the example ended with ${result} and printed:\n${output}${errors}")
endif()
