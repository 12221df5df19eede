# The in-process object for the Windows platform: cordboard.dll, with its type library inside.
enable_language(RC)
find_program(CORDBOARD_WIDL ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32-widl REQUIRED)
# The interface compiler reads the platform's basic type library, which comes with the layer that runs the tests.
file(GLOB layers /usr/lib/*/wine/x86_64-windows /usr/lib/wine/x86_64-windows)
find_file(CORDBOARD_STDOLE stdole2.tlb PATHS ${layers} NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
cmake_path(GET CORDBOARD_STDOLE PARENT_PATH stdole_folder)

set(generated ${PROJECT_BINARY_DIR}/generated/com)
file(MAKE_DIRECTORY ${generated})
set(widl ${CORDBOARD_WIDL} -I${PROJECT_SOURCE_DIR}/com -L${stdole_folder})
math(EXPR bits "${CMAKE_SIZEOF_VOID_P} * 8")
add_custom_command(
  OUTPUT ${generated}/Interface.h ${generated}/cordboard.tlb
  COMMAND ${widl} --win${bits} -h -o ${generated}/Interface.h ${PROJECT_SOURCE_DIR}/com/cordboard.idl
  COMMAND ${widl} --win${bits} -t -o ${generated}/cordboard.tlb ${PROJECT_SOURCE_DIR}/com/cordboard.idl
  DEPENDS ${PROJECT_SOURCE_DIR}/com/cordboard.idl ${PROJECT_SOURCE_DIR}/com/oaidl.idl VERBATIM)
add_custom_target(cordboard_interface DEPENDS ${generated}/Interface.h ${generated}/cordboard.tlb)

# The parts, for the module and for its tests.
file(GLOB com_sources CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} com/*.cpp)
list(REMOVE_ITEM com_sources com/Exports.cpp)
add_library(cordboard_com STATIC ${com_sources})
add_dependencies(cordboard_com cordboard_interface)
target_include_directories(cordboard_com SYSTEM PUBLIC ${PROJECT_BINARY_DIR}/generated)
target_compile_definitions(cordboard_com PUBLIC UNICODE _UNICODE _WIN32_WINNT=0x0601)
target_link_libraries(cordboard_com PUBLIC cordboard::cordboard ole32 oleaut32)
cordboard_precompile(cordboard_com com/Platform.h com/Variant.h com/WideText.h)

# The resource compiler writes no dependency file.
set_source_files_properties(com/cordboard.rc PROPERTIES OBJECT_DEPENDS ${generated}/cordboard.tlb
                            COMPILE_OPTIONS -I${generated})
add_library(cordboard_dll MODULE com/Exports.cpp com/cordboard.rc com/cordboard.def)
set_target_properties(cordboard_dll PROPERTIES OUTPUT_NAME cordboard PREFIX "")
target_link_libraries(cordboard_dll PRIVATE cordboard_com)
target_link_options(cordboard_dll PRIVATE -static -Wl,--enable-stdcall-fixup $<$<CONFIG:MinSizeRel,Release>:-s>)
install(TARGETS cordboard_dll LIBRARY DESTINATION ${CMAKE_INSTALL_BINDIR})
