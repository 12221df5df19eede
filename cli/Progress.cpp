#include "cli/Progress.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace cordboard::cli {

namespace {

constexpr std::chrono::milliseconds between{250};

// The lines of the plans, where they are files; nothing where one is not, whose end nobody knows.
std::optional<std::size_t> NumberOfLines(const std::vector<std::string>& plans) {
  std::size_t lines = 0;
  for (const std::string& plan : plans) {
    if (!std::filesystem::is_regular_file(plan)) return std::nullopt;
    std::ifstream in(plan, std::ios::binary);
    char last = '\n';
    for (std::vector<char> piece(1 << 16); in.read(piece.data(), std::ssize(piece)) || in.gcount() > 0;) {
      lines += static_cast<std::size_t>(std::count(piece.begin(), piece.begin() + in.gcount(), '\n'));
      last = piece[static_cast<std::size_t>(in.gcount()) - 1];
    }
    if (last != '\n') ++lines;
  }
  return lines;
}

}  // namespace

Progress::Progress(const std::vector<std::string>& plans) : shows_(isatty(STDERR_FILENO) == 1) {
  if (!shows_) return;
  total_ = NumberOfLines(plans);
  Show(0, begun_);
}

void Progress::Reached(std::size_t lines) {
  if (!shows_) return;
  const Clock::time_point now = Clock::now();
  if (now - shown_ >= between) Show(lines, now);
}

void Progress::Show(std::size_t lines, Clock::time_point now) {
  std::string text = std::to_string(lines) + (total_ ? " of " + std::to_string(*total_) : "") + " lines";
  const double seconds = std::chrono::duration<double>(now - begun_).count();
  if (lines > 0)
    text += ", " + std::to_string(static_cast<std::size_t>(static_cast<double>(lines) / seconds)) + " a second";
  Clear();
  std::cerr << text << std::flush;
  width_ = text.size();
  shown_ = now;
}

void Progress::Clear() {
  if (width_ > 0) std::cerr << '\r' << std::string(width_, ' ') << '\r' << std::flush;
  width_ = 0;
}

}  // namespace cordboard::cli
