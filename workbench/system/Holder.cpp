#include "workbench/system/Holder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <vector>

#include "workbench/system/User.h"

namespace cordboard::workbench {

namespace {

namespace fs = std::filesystem;

// 0 where nobody has a lock, or somebody whom this process cannot see.
pid_t LockingProcess(const fs::path& file, std::int64_t byte) {
  const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return 0;
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  lock.l_start = byte;
  lock.l_len = 1;
  const bool locked = fcntl(descriptor, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
  close(descriptor);
  return locked && lock.l_pid > 0 ? lock.l_pid : 0;
}

std::string OwnerOf(const fs::path& process) {
  struct stat status {};
  if (stat(process.c_str(), &status) != 0) return "";
  return NameOfUser(status.st_uid);
}

// The name of the program and the word after it: what a program such as cordboard is told to do.
std::string CommandOf(const fs::path& process) {
  std::ifstream in(process / "cmdline", std::ios::binary);
  std::string program;
  std::string word;
  std::getline(in, program, '\0');
  std::getline(in, word, '\0');
  return fs::path(program).filename().string() + (word.empty() ? "" : " " + word);
}

// The seconds since 1970 at which the machine was started.
std::optional<std::time_t> StartOfMachine() {
  std::ifstream in("/proc/stat");
  std::string line;
  while (std::getline(in, line)) {
    if (line.starts_with("btime ")) return std::stoll(line.substr(6));
  }
  return std::nullopt;
}

std::optional<std::time_t> StartOf(const fs::path& process) {
  // The places of the text are counted from 1; the second is a name in brackets, which may hold blanks and brackets.
  constexpr int placeOfStart = 22;
  std::ifstream in(process / "stat");
  std::string text;
  std::getline(in, text);
  std::istringstream places(text.substr(std::min(text.size(), text.rfind(") ") + 1)));
  const std::vector<std::string> behindName{std::istream_iterator<std::string>(places), {}};
  const auto machine = StartOfMachine();
  if (behindName.size() <= placeOfStart - 3 || !machine) return std::nullopt;
  return *machine + std::stoll(behindName[placeOfStart - 3]) / sysconf(_SC_CLK_TCK);
}

std::string Formatted(std::time_t time, const char* format) {
  std::tm local{};
  localtime_r(&time, &local);
  char text[32];
  return {text, std::strftime(text, sizeof text, format, &local)};
}

// The time of a day, with the date where that is not today's.
std::string Since(std::time_t time) {
  const char* const date = "%Y-%m-%d ";
  const bool today = Formatted(time, date) == Formatted(std::time(nullptr), date);
  return " since " + (today ? "" : Formatted(time, date)) + Formatted(time, "%H:%M");
}

}  // namespace

std::string HolderOf(const fs::path& file, std::int64_t byte) {
  const pid_t number = LockingProcess(file, byte);
  if (number == 0) return "another process";
  const fs::path process = "/proc/" + std::to_string(number);
  const std::string owner = OwnerOf(process);
  const std::string command = CommandOf(process);
  const auto start = StartOf(process);
  std::string told = "process " + std::to_string(number) + (command.empty() ? "" : ", " + command);
  if (!owner.empty()) told = owner + " (" + told + ")";
  return told + (start ? Since(*start) : "");
}

}  // namespace cordboard::workbench
