// What was typed in the shells of a user before, in a file that nobody else reads.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace cordboard::cli::shell {

// Whether a text is kept: what cannot be read, or holds a secret or a parameter that its command does not have, which
// may be a secret mistyped, is not.
bool IsKept(const std::string& text);

class RecentLines {
 public:
  // In the folder for the state of programs; nowhere where the user has no folder.
  RecentLines();

  // Those of the shells before, until one is added.
  const std::vector<std::string>& lines() const { return lines_; }
  // Adds what may be kept. Where the file cannot be written, that is told once.
  void Add(const std::string& text);

 private:
  void Write(const std::string& text);

  std::filesystem::path file_;
  std::vector<std::string> lines_;
  bool failed_ = false;
};

}  // namespace cordboard::cli::shell
