#include "workbench/system/Holder.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "workbench/support/TemporaryFolder.h"

namespace cordboard::workbench {
namespace {

// Another process that has a lock on a byte of the file, until the end of the test.
class LockingProcess {
 public:
  LockingProcess(const std::filesystem::path& file, off_t byte) {
    int ready[2];
    if (pipe(ready) != 0) return;
    number_ = fork();
    if (number_ == 0) {
      const int descriptor = open(file.c_str(), O_RDWR);
      struct flock lock {};
      lock.l_type = F_WRLCK;
      lock.l_whence = SEEK_SET;
      lock.l_start = byte;
      lock.l_len = 1;
      const bool locked = fcntl(descriptor, F_SETLK, &lock) == 0;
      if (write(ready[1], locked ? "y" : "n", 1) == 1) pause();
      _exit(0);
    }
    char answer = 'n';
    locked_ = read(ready[0], &answer, 1) == 1 && answer == 'y';
    close(ready[0]);
    close(ready[1]);
  }
  ~LockingProcess() {
    kill(number_, SIGKILL);
    waitpid(number_, nullptr, 0);
  }
  LockingProcess(const LockingProcess&) = delete;
  LockingProcess& operator=(const LockingProcess&) = delete;

  pid_t number() const { return number_; }
  bool HasLock() const { return locked_; }

 private:
  pid_t number_ = 0;
  bool locked_ = false;
};

TEST(Holder, IsToldWithItsOwnerItsNumberItsCommandAndItsStart) {
  const TemporaryFolder folder;
  WriteFile(folder / "a", "");
  const LockingProcess other(folder / "a", 7);
  ASSERT_TRUE(other.HasLock());
  const passwd* user = getpwuid(geteuid());
  const std::string owner = user != nullptr ? user->pw_name : "user [0-9]+";
  const std::string number = std::to_string(other.number());
  EXPECT_THAT(HolderOf(folder / "a", 7),
              testing::MatchesRegex(owner + " .process " + number + ", workbench-tests.*. since .*[0-9]+:[0-9]+"));
}

TEST(Holder, WhatTheSystemDoesNotTellIsLeftOut) {
  const TemporaryFolder folder;
  WriteFile(folder / "a", "");
  const LockingProcess other(folder / "a", 7);
  ASSERT_TRUE(other.HasLock());
  EXPECT_EQ(HolderOf(folder / "a", 8), "another process");
  EXPECT_EQ(HolderOf(folder / "nowhere", 7), "another process");
}

}  // namespace
}  // namespace cordboard::workbench
