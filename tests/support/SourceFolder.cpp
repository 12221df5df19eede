#include "support/SourceFolder.h"

namespace cordboard {

std::string SourceFile(const std::string& path) { return CORDBOARD_SOURCE_DIR "/" + path; }

}  // namespace cordboard
