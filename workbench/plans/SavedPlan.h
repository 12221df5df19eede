// A plan that was tried and saved, to be applied as it was shown: its first line, a comment, names the exchange and the
// state that it was tried on, and has a sum of the lines behind it.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "workbench/text/Sum.h"

namespace cordboard::workbench {

// A saved plan that is not what was shown: the exchange is another now, or the plan.
class StalePlan : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The text of a plan, gathered line by line while it is tried.
class SavedPlan {
 public:
  void Add(const std::string& line);
  // With its first line. `how` says how and on what it was tried, as a user reads it; `key` is what the exchange and
  // the options have to be for the same to be done again.
  std::string Written(const std::string& how, const std::string& key) const;

 private:
  std::string text_;
  Sum sum_;
};

// A saved plan without its first line, so that it can be applied on any exchange; any other text as it is.
std::string WithoutFirstLine(std::string plan);

// Whether a file that is applied is a saved plan, and if so whether it is what was shown.
class SavedPlanCheck {
 public:
  explicit SavedPlanCheck(std::string file) : file_(std::move(file)) {}

  bool IsSaved() const { return !sumShown_.empty(); }
  // The next line, and the key as it is now. Fails with StalePlan, as End does.
  void Take(const std::string& line, const std::string& key);
  void End() const;

 private:
  std::string file_;
  bool isFirst_ = true;
  std::string sumShown_;
  Sum sum_;
};

}  // namespace cordboard::workbench
