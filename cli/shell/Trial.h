// Lines that are tried on a copy of an exchange, to be kept as one plan or dropped.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "workbench/exchange/Exchange.h"
#include "workbench/plans/Plan.h"

namespace cordboard::cli::shell {

class Trial {
 public:
  // Begins on this copy, which it changes from now on.
  explicit Trial(std::unique_ptr<workbench::Exchange> copy);

  workbench::Exchange& exchange() { return *exchange_; }
  // The newest state of the exchange when the trial began; nothing where it had no history.
  std::optional<int> base() const { return base_; }
  std::size_t lines() const;

  // A text of one or more lines that was performed on the copy.
  void Add(const std::string& text, const workbench::PlanResult& result);
  // Take back the text that was added last, and bring it again: they give it, or nothing where there is none.
  std::optional<std::string> TakeBack();
  std::optional<std::string> BringAgain();

  // The texts that were added and not taken back.
  std::vector<std::string> Texts() const;
  // All of them as a plan, and as one that is refused where the exchange is not as it was when the trial began.
  std::string AsPlan() const;
  std::string AsSavedPlan(const std::string& exchange) const;

 private:
  struct Tried {
    std::string text;
    bool changed;  // whether it has made a state of the copy
  };

  std::unique_ptr<workbench::Exchange> exchange_;
  std::optional<int> base_;
  std::string key_;
  std::vector<Tried> tried_;
  std::vector<Tried> takenBack_;
};

}  // namespace cordboard::cli::shell
