#include "workbench/system/WholeFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

#include "workbench/system/Signals.h"

namespace cordboard::workbench {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const fs::path& file) {
  throw fs::filesystem_error("cannot be written", file, std::error_code(errno, std::generic_category()));
}

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool IsOpen() const { return number_ >= 0; }

  bool Write(std::string_view content) const {
    while (!content.empty()) {
      const ssize_t written = write(number_, content.data(), content.size());
      if (written < 0 && errno != EINTR) return false;
      if (written > 0) content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
  }
  bool Sync() const { return fsync(number_) == 0; }
  // Some file systems tell only now that there is no room.
  bool Close() { return close(std::exchange(number_, -1)) == 0; }

 private:
  int number_;
};

// A file of another name, in the same folder, until it is put in its place.
class Beside {
 public:
  explicit Beside(const fs::path& folder)
      : name_((folder / ".cordboard-XXXXXX").string()), descriptor_(mkostemp(name_.data(), O_CLOEXEC)) {}
  ~Beside() {
    if (descriptor_.IsOpen() || made_) unlink(name_.c_str());
  }

  bool Write(std::string_view content) {
    made_ = descriptor_.IsOpen();
    return made_ && descriptor_.Write(content) && descriptor_.Sync() && descriptor_.Close();
  }
  bool PutInPlace(const fs::path& file, Existing existing) {
    const unsigned refused = existing == Existing::Refused ? RENAME_NOREPLACE : 0;
    if (renameat2(AT_FDCWD, name_.c_str(), AT_FDCWD, file.c_str(), refused) == 0) return !(made_ = false);
    // Not every file system can refuse here; a link is never made over what stands there.
    return refused != 0 && errno == EINVAL && link(name_.c_str(), file.c_str()) == 0;
  }

 private:
  std::string name_;
  Descriptor descriptor_;
  bool made_ = false;
};

void WriteTo(const fs::path& device, std::string_view content) {
  Descriptor descriptor(open(device.c_str(), O_WRONLY | O_CLOEXEC));
  if (!descriptor.IsOpen() || !descriptor.Write(content) || !descriptor.Close()) Fail(device);
}

}  // namespace

void WriteWholeFile(const fs::path& file, std::string_view content, Existing existing) {
  if (existing == Existing::Replaced && fs::exists(file) && !fs::is_regular_file(file)) return WriteTo(file, content);
  const fs::path place = existing == Existing::Replaced ? fs::weakly_canonical(file) : fs::absolute(file);
  const SignalsHeldBack untilInPlace;
  Beside beside(place.parent_path());
  if (!beside.Write(content) || !beside.PutInPlace(place, existing)) Fail(file);
  // The name is as lasting as the content where the folder can be told so; it stands there in any case.
  const Descriptor folder(open(place.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.IsOpen()) folder.Sync();
}

}  // namespace cordboard::workbench
