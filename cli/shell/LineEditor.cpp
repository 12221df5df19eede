#include "cli/shell/LineEditor.h"

#include <histedit.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cwchar>
#include <sstream>

#include "cli/Output.h"
#include "cli/shell/Typed.h"
#include "workbench/system/Signals.h"

namespace cordboard::cli::shell {

namespace {

constexpr int mostRemembered = 1000;
// A list leaves room for the row that is typed.
constexpr std::size_t mostRows = 20;
// Stands for a byte that is no character.
constexpr std::string_view replacement = "\uFFFD";

LineEditor& Of(EditLine* editor) {
  void* data = nullptr;
  el_get(editor, EL_CLIENTDATA, &data);
  return *static_cast<LineEditor*>(data);
}

// The program speaks UTF-8, whatever the terminal is said to speak.
EditLine* NewEditor() {
  std::setlocale(LC_CTYPE, "C.UTF-8");
  return el_init("cordboard", stdin, stdout, stderr);
}

Room TerminalRoom() {
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return {24, 80};
  return {size.ws_row, size.ws_col};
}

}  // namespace

void LineEditor::End::operator()(editline* editor) const { el_end(editor); }
void LineEditor::End::operator()(struct history* lines) const { history_end(lines); }

LineEditor::LineEditor(AtTab atTab) : atTab_(std::move(atTab)), history_(history_init()), editor_(NewEditor()) {
  EditLine* editor = editor_.get();
  el_set(editor, EL_CLIENTDATA, this);
  el_set(editor, EL_PROMPT, Prompt);
  el_set(editor, EL_EDITOR, "emacs");
  el_set(editor, EL_SIGNAL, 1);  // stopping, going on, and another size; those that end are held back
  el_set(editor, EL_GETCFN, Read);
  // The wide texts stay where they are; of others libedit loses a copy.
  el_wset(editor, EL_ADDFN, L"complete", L"Complete what is typed", Complete);
  el_set(editor, EL_BIND, "^I", "complete", nullptr);
  el_set(editor, EL_BIND, "^R", "em-inc-search-prev", nullptr);
  HistEvent event;
  ::history(history_.get(), &event, H_SETSIZE, mostRemembered);
  ::history(history_.get(), &event, H_SETUNIQUE, 1);
  for (const std::string& line : recent_.lines()) ::history(history_.get(), &event, H_ENTER, line.c_str());
  el_set(editor, EL_HIST, ::history, history_.get());
  el_source(editor, nullptr);  // what the user wants otherwise
}

LineEditor::~LineEditor() = default;

std::optional<std::string> LineEditor::Next(const std::string& prompt) {
  FlushOutput();
  prompt_ = prompt;
  // Before the prompt is shown, so that what is typed at it at once is not echoed twice.
  el_set(editor_.get(), EL_PREP_TERM, 1);
  int length = 0;
  const char* row = el_gets(editor_.get(), &length);
  if (row == nullptr || length <= 0) {
    std::fputs("\n", stdout);
    std::fflush(stdout);
    workbench::EndOnSignal();
    return std::nullopt;
  }
  std::string text(row, static_cast<std::size_t>(length));
  if (text.ends_with('\n')) text.pop_back();
  // What was no character is none in the row either, so that nobody takes the row for what was meant.
  for (std::size_t at = text.find(replacement); at != text.npos; at = text.find(replacement, at))
    text.replace(at, replacement.size(), "\xFF");
  return text;
}

// What has several lines is brought again line by line.
void LineEditor::Remember(const std::string& text) {
  HistEvent event;
  std::istringstream rows(RowsOf(text));
  for (std::string row; std::getline(rows, row);) ::history(history_.get(), &event, H_ENTER, row.c_str());
  recent_.Add(text);
}

std::size_t LineEditor::Columns() const { return TerminalRoom().columns; }

char* LineEditor::Prompt(EditLine* editor) { return Of(editor).prompt_.data(); }

// A character, where no signal comes before it. Bytes that make none are shown as such.
int LineEditor::Read(EditLine* editor, wchar_t* character) {
  std::mbstate_t state{};
  el_resize(editor);
  while (true) {
    if (!workbench::WaitForInput(STDIN_FILENO)) {
      errno = EINTR;
      return -1;
    }
    char byte = 0;
    const ssize_t size = ::read(STDIN_FILENO, &byte, 1);
    if (size < 0 && (errno == EINTR || errno == EAGAIN)) continue;
    if (size <= 0) return static_cast<int>(size);
    const std::size_t made = std::mbrtowc(character, &byte, 1, &state);
    if (made == static_cast<std::size_t>(-1)) {
      *character = L'\uFFFD';
      return 1;
    }
    if (made != static_cast<std::size_t>(-2)) {
      return 1;
    }
  }
}

unsigned char LineEditor::Complete(EditLine* editor, int) {
  const LineInfo* line = el_line(editor);
  const std::string typed(line->buffer, line->cursor);
  const Room terminal = TerminalRoom();
  const Room room{.rows = std::min(mostRows, terminal.rows > 4 ? terminal.rows - 4 : 1), .columns = terminal.columns};
  Completed completed;
  try {
    completed = Of(editor).atTab_(typed, room);
  } catch (...) {
    // Where what is typed makes no sense there is nothing to complete, and nothing to complain of yet.
  }
  if (!completed.insert.empty()) {
    el_insertstr(editor, completed.insert.c_str());
    return CC_REFRESH;
  }
  if (completed.list.empty()) return CC_REFRESH_BEEP;
  std::fprintf(stdout, "\n%s\n", completed.list.c_str());
  return CC_REDISPLAY;
}

}  // namespace cordboard::cli::shell
