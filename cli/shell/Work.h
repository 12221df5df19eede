// What a shell does to an exchange: it performs lines, at once or on trial, and goes back and forth.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cli/shell/Entry.h"
#include "cli/shell/ExchangeFile.h"
#include "cli/shell/Trial.h"
#include "workbench/plans/Plan.h"

namespace cordboard::cli::shell {

// Each action gives an exit code, or fails as a subcommand does; the next one can be done all the same.
class Work {
 public:
  // `source` is what lines come from, as the history of the exchange calls it.
  Work(ExchangeFile& file, std::string source) : file_(file), source_(std::move(source)) {}

  // The exchange for who asks of it: in a trial as the trial has made it. Whatever rules write while they are asked
  // goes again with the transaction.
  class Look {
   public:
    explicit Look(Work& work)
        : exchange_(work.trial_ ? work.trial_->exchange() : work.file_.Look()), undone_(exchange_) {}
    operator workbench::Exchange&() { return exchange_; }

   private:
    workbench::Exchange& exchange_;
    workbench::Transaction undone_;
  };
  const std::string& fileName() const { return file_.name(); }
  const std::optional<Trial>& trial() const { return trial_; }

  // Performs lines, all or none of them, and tells what they did.
  int Perform(const Entry& entry);
  // The same with those of a file.
  int Read(const std::string& plan);

  int Try();
  // Performs the lines of the trial on the exchange as it is now. Those that are refused are told, and left out.
  int TryAgain();
  int Keep(const std::string& message);
  int Drop();
  // In a trial both go by its lines, and otherwise by the states of the exchange.
  int Undo(std::optional<int> state, bool withLater);
  int Redo();
  // Writes the lines of the trial as a plan, or those that were kept here and not taken back.
  int Save(const std::string& plan);

 private:
  struct Kept {
    std::string text;
    std::optional<int> state;
  };

  // Performs a plan, and gathers its text where it was done.
  workbench::PlanResult Apply(const workbench::PlanFile& plan, const std::string& text, workbench::PlanOptions options);
  Trial& OpenTrial();
  std::string KeptLines();

  ExchangeFile& file_;
  std::string source_;
  std::optional<Trial> trial_;
  std::vector<Kept> kept_;
};

}  // namespace cordboard::cli::shell
