// Writing a file whole: whatever happens, there is the old file or the new one, and never a part.
#pragma once

#include <filesystem>
#include <string_view>

namespace cordboard::workbench {

enum class Existing { Replaced, Refused };

// Writes a file for its owner alone, and comes back when it is on the disk. One that stands there is replaced by the
// new one, or refused (std::errc::file_exists), also where it has come a moment ago; what is no file, such as a device
// or a pipe, is written to, or refused. A link is followed where the file is replaced. Fails with
// std::filesystem::filesystem_error. A process that is killed meanwhile leaves at most a ".cordboard-......" beside it.
void WriteWholeFile(const std::filesystem::path& file, std::string_view content, Existing existing);

}  // namespace cordboard::workbench
