// What stands at the head of a database's file, read without opening it as one.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace cordboard::workbench {

struct FileHeader {
  bool writeAhead = false;  // changes stand in a second file beside it
  std::uint32_t applicationId = 0;
  std::uint32_t userVersion = 0;
};

// Nothing where the file is no database. Fails with std::filesystem::filesystem_error where it cannot be read. A
// process loses by it what locks it has on the file.
std::optional<FileHeader> ReadFileHeader(const std::filesystem::path& file);

}  // namespace cordboard::workbench
