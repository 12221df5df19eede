#include "cli/shell/RecentLines.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "cli/Output.h"
#include "cli/shell/Marks.h"
#include "cli/shell/Typed.h"
#include "cli/shell/Words.h"
#include "workbench/system/SystemMessage.h"
#include "workbench/system/WholeFile.h"
#include "workbench/text/Separated.h"

namespace cordboard::cli::shell {

namespace {

namespace fs = std::filesystem;

// The file is cut down to so many lines when it has twice as many.
constexpr std::size_t mostLines = 1000;

fs::path FolderOf(const char* variable) {
  const char* folder = std::getenv(variable);
  return folder != nullptr && *folder == '/' ? fs::path(folder) : fs::path();
}

fs::path TheFile() {
  const fs::path home = FolderOf("HOME");
  fs::path folder = FolderOf("XDG_STATE_HOME");
  if (folder.empty() && !home.empty()) folder = home / ".local" / "state";
  return folder.empty() ? folder : folder / "cordboard" / "shell-history";
}

std::vector<std::string> LinesOf(std::istream& in) {
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// Of a word NAME=VALUE may tell a secret, as it does in a line: it is looked at as one.
bool IsWordKept(const std::string& text) {
  const Arguments typed = Split(text);
  if (FindWord(typed.front()) == nullptr) return false;
  std::vector<workbench::Assignment> values;
  for (const std::string& argument : typed) {
    const std::size_t equals = argument.find('=');
    if (equals != argument.npos) values.push_back({argument.substr(0, equals), argument.substr(equals + 1)});
  }
  return values.empty() || MayBeTold(workbench::WrittenLine(
                               {.command = typed.size() > 1 ? typed[1] : "", .selection = {}, .values = values}));
}

}  // namespace

bool IsKept(const std::string& text) {
  if (!IsLine(text)) return IsWordKept(text);
  std::istringstream in(text);
  return std::ranges::all_of(LinesOf(in), MayBeTold);
}

RecentLines::RecentLines() : file_(TheFile()) {
  if (file_.empty()) return;
  std::ifstream in(file_);
  lines_ = LinesOf(in);
  if (lines_.size() <= mostLines) return;
  const bool isLong = lines_.size() > 2 * mostLines;
  lines_.erase(lines_.begin(), lines_.end() - mostLines);
  if (!isLong) return;
  try {
    workbench::WriteWholeFile(file_, workbench::Separated(lines_, "\n") + "\n", workbench::Existing::Replaced);
  } catch (const fs::filesystem_error&) {
    // It stays as it is.
  }
}

void RecentLines::Add(const std::string& text) {
  if (file_.empty() || failed_ || !IsKept(text) || (!lines_.empty() && lines_.back() == text)) return;
  lines_ = {text};
  try {
    Write(RowsOf(text) + "\n");
  } catch (const fs::filesystem_error& error) {
    failed_ = true;
    Warning("what is typed is not kept for the next time: " + file_.string() + ": " +
            workbench::SystemMessage(error.code().value()));
  }
}

// Its folders and itself are made for their owner alone.
void RecentLines::Write(const std::string& text) {
  const auto fail = [this] { throw fs::filesystem_error("", file_, std::error_code(errno, std::generic_category())); };
  const mode_t mask = umask(S_IRWXG | S_IRWXO);
  std::error_code error;
  fs::create_directories(file_.parent_path(), error);
  const int file = open(file_.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
  umask(mask);
  if (file < 0) fail();
  const bool isWritten = fchmod(file, S_IRUSR | S_IWUSR) == 0 && ::write(file, text.data(), text.size()) >= 0;
  const int reason = errno;
  close(file);
  errno = reason;
  if (!isWritten) fail();
}

}  // namespace cordboard::cli::shell
