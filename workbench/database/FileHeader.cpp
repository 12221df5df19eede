#include "workbench/database/FileHeader.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <string_view>
#include <system_error>

namespace cordboard::workbench {

namespace {

// The places of the file format.
constexpr std::string_view mark("SQLite format 3\0", 16);
constexpr std::size_t writeVersion = 18;
constexpr std::size_t userVersion = 60;
constexpr std::size_t applicationId = 68;
constexpr char writeAheadVersion = 2;

using Head = std::array<char, 100>;

std::uint32_t NumberAt(const Head& head, std::size_t place) {
  std::uint32_t number = 0;
  for (std::size_t i = place; i < place + 4; ++i) number = number << 8 | static_cast<unsigned char>(head[i]);
  return number;
}

}  // namespace

std::optional<FileHeader> ReadFileHeader(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in)
    throw std::filesystem::filesystem_error("cannot be read", file, std::error_code(errno, std::generic_category()));
  Head head{};
  in.read(head.data(), head.size());
  if (!in || !std::string_view(head.data(), head.size()).starts_with(mark)) return std::nullopt;
  return FileHeader{.writeAhead = head[writeVersion] == writeAheadVersion,
                    .applicationId = NumberAt(head, applicationId),
                    .userVersion = NumberAt(head, userVersion)};
}

}  // namespace cordboard::workbench
