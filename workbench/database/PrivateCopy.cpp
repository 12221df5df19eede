#include "workbench/database/PrivateCopy.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

#include "workbench/database/FileLocks.h"

namespace cordboard::workbench {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const fs::path& file) {
  throw fs::filesystem_error("cannot be copied", file, std::error_code(errno, std::generic_category()));
}

// Keeps everybody from changing the file while it lives, as SQLite's readers do.
class ReaderLock {
 public:
  explicit ReaderLock(const fs::path& file) : descriptor_(open(file.c_str(), O_RDONLY | O_CLOEXEC)) {
    struct flock lock {};
    lock.l_type = F_RDLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = readersByte;
    lock.l_len = readersBytes;
    // One of the open file, which stays when the file is opened and closed once more.
    if (descriptor_ < 0 || fcntl(descriptor_, F_OFD_SETLKW, &lock) != 0) Fail(file);
  }
  ~ReaderLock() { close(descriptor_); }
  ReaderLock(const ReaderLock&) = delete;
  ReaderLock& operator=(const ReaderLock&) = delete;

 private:
  int descriptor_;
};

}  // namespace

PrivateCopy::Folder::Folder() {
  std::string name = (fs::temp_directory_path() / "cordboard-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) Fail(name);
  path = name;
}

PrivateCopy::Folder::~Folder() {
  std::error_code ignored;
  fs::remove_all(path, ignored);
}

PrivateCopy::PrivateCopy(const fs::path& original) {
  const ReaderLock lock(original);
  for (const char* ending : {"", "-journal", "-wal"}) {
    const fs::path from = original.string() + ending;
    const fs::path copy = file().string() + ending;
    if (!fs::exists(from)) continue;
    fs::copy_file(from, copy);
    fs::permissions(copy, fs::perms::owner_read | fs::perms::owner_write);
  }
}

}  // namespace cordboard::workbench
