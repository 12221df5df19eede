// A folder for the files of one test, gone with it.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace cordboard::workbench {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "cordboard-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
  bool IsEmpty() const { return std::filesystem::is_empty(path_); }
  // The names of its files, in their order.
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
  }

 private:
  std::filesystem::path path_;
};

inline void WriteFile(const std::filesystem::path& file, const std::string& content) {
  std::ofstream(file, std::ios::binary) << content;
}

inline std::string ReadFile(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The message of the error that the work ends with; "no error" where it ends well.
template <typename Error, typename Work>
std::string Refusal(Work work) {
  try {
    work();
  } catch (const Error& error) {
    return error.what();
  }
  return "no error";
}

}  // namespace cordboard::workbench
