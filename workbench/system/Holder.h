// Who holds a file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace cordboard::workbench {

// The process that has a lock on a byte of the file, in words: "anna (process 4711, cordboard apply) since 10:52", by
// the time at which it was started. What the system does not tell is left out: "another process". It may only be asked
// by a process that has no lock on the file: its own are lost by it.
std::string HolderOf(const std::filesystem::path& file, std::int64_t byte);

}  // namespace cordboard::workbench
