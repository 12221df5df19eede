// A plan as it comes in, from a file, a pipe or a terminal.
#pragma once

#include <array>
#include <istream>
#include <streambuf>
#include <string>

namespace cordboard::cli {

// Reads an open file. It ends where a signal waits that was held back, also while nothing comes; a file that cannot be
// read any further is bad.
class PlanStream : public std::istream {
 public:
  // Takes the file over, but for standard input.
  explicit PlanStream(int file) : std::istream(nullptr), buffer_(file) { rdbuf(&buffer_); }

 private:
  class Buffer : public std::streambuf {
   public:
    explicit Buffer(int file) : file_(file) {}
    ~Buffer() override;
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;

   protected:
    int_type underflow() override;

   private:
    int file_;
    std::array<char, 16384> read_;
  };

  Buffer buffer_;
};

// Opens the file of a plan, or standard input for "-"; ends the subcommand where it cannot be read.
int OpenPlan(const std::string& plan);

}  // namespace cordboard::cli
