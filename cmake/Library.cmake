# The library: entry, commands, shared and script, on the standard library alone.
file(GLOB cordboard_sources CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
     script/*.cpp shared/*.cpp commands/*/*.cpp entry/*.cpp)
add_library(cordboard_library STATIC ${cordboard_sources})
add_library(cordboard::cordboard ALIAS cordboard_library)
set_target_properties(cordboard_library PROPERTIES OUTPUT_NAME cordboard EXPORT_NAME cordboard)
target_compile_features(cordboard_library PUBLIC cxx_std_20)
set(standard_headers <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <ranges> <set> <stdexcept>
    <string> <string_view> <utility> <variant> <vector>)
cordboard_precompile(cordboard_library ${standard_headers} script/Conversions.h script/Generate.h script/Module.h
                     script/Report.h shared/ValueLists.h)
target_include_directories(cordboard_library PUBLIC
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/cordboard>)

install(TARGETS cordboard_library EXPORT cordboard-targets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY script shared entry DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/cordboard FILES_MATCHING PATTERN "*.h")
install(EXPORT cordboard-targets NAMESPACE cordboard:: FILE cordboard-config.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/cordboard)
include(CMakePackageConfigHelpers)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/cordboard-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/cordboard-config-version.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/cordboard)
