// A copy of a database's file and of the journal beside it, in a folder of its own that goes with it: for a reader, who
// leaves what a killed writer has left to the next writer.
#pragma once

#include <filesystem>

#include "workbench/system/Signals.h"

namespace cordboard::workbench {

class PrivateCopy {
 public:
  // Fails with std::filesystem::filesystem_error.
  explicit PrivateCopy(const std::filesystem::path& original);

  std::filesystem::path file() const { return folder_.path / "exchange"; }

 private:
  struct Folder {
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::filesystem::path path;
  };

  const SignalsHeldBack untilItIsGone_;
  Folder folder_;
};

}  // namespace cordboard::workbench
