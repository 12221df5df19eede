# The remote host: the library on standard input and output, for a host in another process and any language.
find_package(nlohmann_json 3.9 REQUIRED)

file(GLOB remote_sources CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} remote/*.cpp)
add_library(cordboard_remote STATIC ${remote_sources})
target_link_libraries(cordboard_remote PUBLIC cordboard::cordboard nlohmann_json::nlohmann_json)
