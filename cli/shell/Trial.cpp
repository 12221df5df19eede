#include "cli/shell/Trial.h"

#include <sstream>
#include <utility>

#include "cli/shell/Telling.h"
#include "workbench/history/History.h"
#include "workbench/history/Undo.h"
#include "workbench/plans/SavedPlan.h"

namespace cordboard::cli::shell {

Trial::Trial(std::unique_ptr<workbench::Exchange> copy) : exchange_(std::move(copy)) {
  const workbench::History history(exchange_->Dynamic());
  if (!history.states().empty()) base_ = history.states().back().number;
}

std::size_t Trial::lines() const { return CountLines(AsPlan()); }

// The first text is performed on the exchange as it was, which its key tells.
void Trial::Add(const std::string& text, const workbench::PlanResult& result) {
  if (key_.empty()) key_ = result.key;
  tried_.push_back({text, result.state.has_value()});
  takenBack_.clear();
}

std::optional<std::string> Trial::TakeBack() {
  if (tried_.empty()) return std::nullopt;
  if (tried_.back().changed) workbench::Undo(exchange_->Dynamic(), std::nullopt, false, "");
  takenBack_.push_back(std::move(tried_.back()));
  tried_.pop_back();
  return takenBack_.back().text;
}

std::optional<std::string> Trial::BringAgain() {
  if (takenBack_.empty()) return std::nullopt;
  if (takenBack_.back().changed) workbench::Redo(exchange_->Dynamic(), "");
  tried_.push_back(std::move(takenBack_.back()));
  takenBack_.pop_back();
  return tried_.back().text;
}

std::vector<std::string> Trial::Texts() const {
  std::vector<std::string> texts;
  for (const Tried& tried : tried_) texts.push_back(tried.text);
  return texts;
}

std::string Trial::AsPlan() const {
  std::string plan;
  for (const Tried& tried : tried_) plan += tried.text + "\n";
  return plan;
}

std::string Trial::AsSavedPlan(const std::string& exchange) const {
  workbench::SavedPlan saved;
  std::istringstream lines(AsPlan());
  for (std::string line; std::getline(lines, line);) saved.Add(line);
  return saved.Written("tried on state " + std::to_string(base_.value_or(0)) + " of " + exchange, key_);
}

}  // namespace cordboard::cli::shell
