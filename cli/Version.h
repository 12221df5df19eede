// Which program this is.
#pragma once

#include <string>

namespace cordboard::cli {

std::string Version();  // "0.1.0"
// With the commit, where the sources had one, the kind of build and the SQLite that is used:
// "cordboard 0.1.0 (152ec25, Release, SQLite 3.40.1)".
std::string VersionAndBuild();

}  // namespace cordboard::cli
