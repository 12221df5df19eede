// A folder for files of the measurement, gone at the end.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace cordboard::bench {

class Folder {
 public:
  Folder() {
    std::string name = std::filesystem::temp_directory_path() / "cordboard-bench.XXXXXX";
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder can be made for the measurements");
    path_ = name;
  }
  ~Folder() { std::filesystem::remove_all(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  std::string File(const std::string& name) const { return path_ / (name + ".cbx"); }

 private:
  std::filesystem::path path_;
};

}  // namespace cordboard::bench
