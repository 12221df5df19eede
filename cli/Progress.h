// How far a plan has come, on a terminal: one line that is written over itself, and gone at the end.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace cordboard::cli {

// Shows nothing where standard error is no terminal.
class Progress {
 public:
  explicit Progress(const std::vector<std::string>& plans);
  ~Progress() { Clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Reached(std::size_t lines);
  // What is written now begins on a clean line.
  void Clear();

 private:
  using Clock = std::chrono::steady_clock;

  void Show(std::size_t lines, Clock::time_point now);

  bool shows_;
  std::optional<std::size_t> total_;
  Clock::time_point begun_ = Clock::now();
  Clock::time_point shown_ = begun_;
  std::size_t width_ = 0;  // of what stands on the line
};

}  // namespace cordboard::cli
