// Where the sources lie, for tests that read files of theirs.
#pragma once

#include <string>

namespace cordboard {

// The path of a file, given from the root of the sources: "script/MessageCodes.h".
std::string SourceFile(const std::string& path);

}  // namespace cordboard
