#include "cli/shell/Shell.h"

#include <unistd.h>

#include <csignal>
#include <iostream>
#include <memory>
#include <optional>

#include "cli/Failures.h"
#include "cli/Output.h"
#include "cli/shell/Completion.h"
#include "cli/shell/Input.h"
#include "cli/shell/LineEditor.h"
#include "cli/shell/Typed.h"
#include "cli/shell/Words.h"
#include "cli/shell/Work.h"
#include "script/Text.h"
#include "workbench/system/Signals.h"
#include "workbench/text/Counted.h"
#include "workbench/text/Utf8.h"

namespace cordboard::cli::shell {

namespace {

const char* const promptWithin = "...> ";

class Shell {
 public:
  Shell(const ShellOptions& options, const Definition& program, bool isTerminal);

  int Run();

 private:
  // The next thing that is typed; nothing at the end.
  std::optional<Entry> Next();
  void Do(const Entry& entry);
  int DoHere(const Entry& entry);
  // Whether the shell may end: where a trial has lines, who sits at the terminal is asked.
  bool MayEnd();
  void DropTrial();
  // After a signal: gives whether the shell goes on.
  bool GoesOn(int signal);

  std::string Prompt() const;
  std::size_t LinesOnTrial() const { return work_.trial() ? work_.trial()->lines() : 0; }

  bool isTerminal_;
  bool stops_;
  ExchangeFile file_;
  Work work_;
  Setting setting_;
  Typed typed_;
  std::unique_ptr<Input> input_;
  std::size_t row_ = 0;
  int exitCode_ = Done;
  bool refused_ = false;  // what was done last
};

Shell::Shell(const ShellOptions& options, const Definition& program, bool isTerminal)
    : isTerminal_(isTerminal),
      stops_(options.stop),
      file_(options.file, options.readOnly, options.wait),
      work_(file_, isTerminal ? "shell" : "standard input"),
      setting_{work_, program} {
  file_.Look();  // what is no exchange is told at once
  if (!isTerminal_) {
    input_ = std::make_unique<PipedInput>();
    return;
  }
  input_ = std::make_unique<LineEditor>([this](const std::string& row, const Room& room) {
    std::optional<Work::Look> look;
    const auto exchange = [&]() -> workbench::Exchange& { return look ? *look : look.emplace(work_); };
    const std::string line = typed_.LineWith(row);
    return Complete(line, Continuations({.exchange = exchange, .most = mostLookedFor}, line), room);
  });
}

std::string Shell::Prompt() const {
  if (!work_.trial()) return file_.ShortName() + "> ";
  const std::size_t lines = LinesOnTrial();
  return file_.ShortName() + (lines == 0 ? " (trial)> " : " (trial, " + workbench::Counted(lines, "line") + ")> ");
}

std::optional<Entry> Shell::Next() {
  typed_ = {};
  Entry entry;
  const std::string prompt = Prompt();
  while (true) {
    const auto row = input_->Next(typed_.IsBegun() ? promptWithin : prompt);
    if (!row && !typed_.IsBegun()) return std::nullopt;
    // Where somebody sits he has changed his mind; elsewhere a line breaks off, which is told.
    if (!row && isTerminal_) return Next();
    ++row_;
    if (!typed_.IsBegun()) entry.row = row_;
    if (!row || typed_.Add(*row)) break;
  }
  entry.text = typed_.text();
  entry.isOneRow = typed_.rows() == 1;
  entry.prompt = Length(prompt);
  entry.columns = input_->Columns();
  return entry;
}

int Shell::DoHere(const Entry& entry) {
  if (IsLine(entry.text)) return work_.Perform(entry);
  if (!workbench::IsUtf8(entry.text)) throw Exit{Usage, "the line is not UTF-8 text"};
  return RunWord(setting_, entry.text);
}

void Shell::Do(const Entry& entry) {
  const MessagesAt place(isTerminal_ ? "" : "standard input:" + std::to_string(entry.row));
  std::optional<workbench::Interrupted> interrupted;
  const int code = TellFailure([&]() -> int {
    try {
      return DoHere(entry);
    } catch (const workbench::Interrupted& signal) {
      interrupted = signal;
      return Refused;
    }
  });
  refused_ = code != Done;
  // Who sits at a terminal has seen it. A file that cannot be written weighs more than a line that is refused.
  if (!isTerminal_ && (code == Trouble || code == Internal)) exitCode_ = code;
  if (!isTerminal_ && refused_ && exitCode_ == Done) exitCode_ = Refused;
  if (!interrupted) return;
  if (isTerminal_) std::cerr << '\n';  // behind the ^C that the terminal shows
  Error("interrupted; nothing was kept");
  throw *interrupted;
}

void Shell::DropTrial() {
  if (const std::size_t lines = LinesOnTrial(); lines > 0) {
    Warning("the trial was not ended: " + workbench::Counted(lines, "line") + (lines == 1 ? " is" : " are") +
            " dropped");
    exitCode_ = exitCode_ == Done ? static_cast<int>(Refused) : exitCode_;
  }
}

bool Shell::MayEnd() {
  if (!isTerminal_ || LinesOnTrial() == 0) return true;
  Note("trial", workbench::Counted(LinesOnTrial(), "line") + " not kept");
  typed_ = {};
  const auto answer = input_->Next("keep, drop or stay? ");
  if (!answer || *answer == "drop") return true;
  if (*answer == "keep") Do({.text = "keep", .row = row_, .columns = input_->Columns()});
  return LinesOnTrial() == 0;
}

bool Shell::GoesOn(int signal) {
  workbench::TakeSignal();
  if (isTerminal_ && signal == SIGINT) return true;
  exitCode_ = AfterSignal + signal;
  return false;
}

int Shell::Run() {
  while (FlushOutput() == 0) {
    try {
      if (const auto entry = Next()) {
        input_->Remember(entry->text);
        Do(*entry);
        if (stops_ && refused_) {
          exitCode_ = exitCode_ == Done ? static_cast<int>(Refused) : exitCode_;
          break;
        }
      } else {
        setting_.quits = true;
      }
      if (std::exchange(setting_.quits, false) && MayEnd()) break;
    } catch (const workbench::Interrupted& interrupted) {
      if (!GoesOn(interrupted.signal())) break;
    }
  }
  DropTrial();
  return exitCode_;
}

}  // namespace

int Run(const ShellOptions& options, const Definition& program) {
  const workbench::SignalsHeldBack held;
  const bool isTerminal = isatty(STDIN_FILENO) == 1 && isatty(STDOUT_FILENO) == 1;
  Shell shell(options, program, isTerminal);
  if (isTerminal) Note("shell", "help tells what can be typed, Tab completes it, Ctrl-D ends");
  return shell.Run();
}

}  // namespace cordboard::cli::shell
