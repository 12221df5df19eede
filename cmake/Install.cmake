# What is installed of the workbench, beside the library (cmake/Library.cmake): the program, completion, pages.
install(TARGETS cordboard RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${man_pages}/ DESTINATION ${CMAKE_INSTALL_MANDIR})
install(FILES README.md CONTRIBUTING.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} PATTERN __pycache__ EXCLUDE)
install(FILES cli/completion/cordboard.bash RENAME cordboard
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
# Debian's zsh looks in one folder for what packages bring, and in another for what is installed by hand.
install(CODE "
  set(folder site-functions)
  if(CMAKE_INSTALL_PREFIX MATCHES \"/usr$\")
    set(folder vendor-completions)
  endif()
  file(INSTALL \"${PROJECT_SOURCE_DIR}/cli/completion/cordboard.zsh\" RENAME _cordboard
       DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/zsh/\${folder}\")")
