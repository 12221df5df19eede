// The bytes of a database's file by whose locks SQLite's processes know of each other.
#pragma once

#include <cstdint>

namespace cordboard::workbench {

constexpr std::int64_t writersByte = 0x40000001;
constexpr std::int64_t readersByte = 0x40000002;
constexpr std::int64_t readersBytes = 510;

}  // namespace cordboard::workbench
