#include "workbench/system/WholeFile.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <thread>

#include "workbench/support/TemporaryFolder.h"

namespace cordboard::workbench {
namespace {

namespace fs = std::filesystem;

std::string Errors(const fs::path& file, Existing existing, const std::string& content = "new") {
  try {
    WriteWholeFile(file, content, existing);
  } catch (const fs::filesystem_error& error) {
    return error.code().message();
  }
  return "";
}

TEST(WholeFile, IsForItsOwnerAlone) {
  const TemporaryFolder folder;
  const mode_t before = umask(0);
  for (const Existing existing : {Existing::Refused, Existing::Replaced}) {
    const fs::path file = folder / (existing == Existing::Refused ? "new" : "old");
    if (existing == Existing::Replaced) WriteFile(file, "old");
    EXPECT_EQ(Errors(file, existing), "");
    EXPECT_EQ(ReadFile(file), "new");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  }
  umask(before);
  EXPECT_EQ(folder.Files(), (std::vector<std::string>{"new", "old"}));
}

TEST(WholeFile, NeverTakesThePlaceOfOneThatIsNotToBeReplaced) {
  const TemporaryFolder folder;
  WriteFile(folder / "a", "mine");
  fs::create_symlink(folder / "nowhere", folder / "link");
  fs::create_directory(folder / "folder");
  for (const char* name : {"a", "link", "folder"}) EXPECT_EQ(Errors(folder / name, Existing::Refused), "File exists");
  EXPECT_EQ(ReadFile(folder / "a"), "mine");
  EXPECT_EQ(folder.Files(), (std::vector<std::string>{"a", "folder", "link"}));
}

TEST(WholeFile, OfTwoThatAreWrittenAtOnceOneIsThere) {
  const TemporaryFolder folder;
  std::string errors[2];
  {
    std::jthread other([&] { errors[1] = Errors(folder / "a", Existing::Refused, std::string(1 << 20, 'b')); });
    errors[0] = Errors(folder / "a", Existing::Refused, std::string(1 << 20, 'a'));
  }
  EXPECT_NE(errors[0].empty(), errors[1].empty());
  EXPECT_EQ(ReadFile(folder / "a"), std::string(1 << 20, errors[0].empty() ? 'a' : 'b'));
  EXPECT_EQ(folder.Files(), std::vector<std::string>{"a"});
}

TEST(WholeFile, TheOldOneStaysWhereTheNewOneHasNoRoom) {
  const TemporaryFolder folder;
  WriteFile(folder / "a", "old");
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{.rlim_cur = 100, .rlim_max = before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  for (const Existing existing : {Existing::Refused, Existing::Replaced}) {
    const fs::path file = folder / (existing == Existing::Refused ? "b" : "a");
    EXPECT_EQ(Errors(file, existing, std::string(1000, 'x')), "File too large");
  }
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(ReadFile(folder / "a"), "old");
  EXPECT_EQ(folder.Files(), std::vector<std::string>{"a"});
}

TEST(WholeFile, ALinkStaysAndWhatItLeadsToIsReplaced) {
  const TemporaryFolder folder;
  WriteFile(folder / "a", "old");
  fs::create_symlink("a", folder / "link");
  EXPECT_EQ(Errors(folder / "link", Existing::Replaced), "");
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_EQ(ReadFile(folder / "a"), "new");
}

TEST(WholeFile, ADeviceAndAPipeAreWrittenTo) {
  EXPECT_EQ(Errors("/dev/full", Existing::Replaced), "No space left on device");
  EXPECT_EQ(Errors("/dev/null", Existing::Replaced), "");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));

  const TemporaryFolder folder;
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  const int reader = open((folder / "pipe").c_str(), O_RDONLY | O_NONBLOCK);
  EXPECT_EQ(Errors(folder / "pipe", Existing::Replaced), "");
  char read[10];
  EXPECT_EQ(std::string(read, static_cast<std::size_t>(::read(reader, read, sizeof read))), "new");
  close(reader);
  EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
}

TEST(WholeFile, AFolderThatThereIsNotIsTold) {
  const TemporaryFolder folder;
  EXPECT_EQ(Errors(folder / "nowhere/a", Existing::Replaced), "No such file or directory");
  EXPECT_EQ(Errors(folder / "nowhere/a", Existing::Refused), "No such file or directory");
}

}  // namespace
}  // namespace cordboard::workbench
