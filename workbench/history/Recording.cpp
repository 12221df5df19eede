#include "workbench/history/Recording.h"

#include "workbench/database/MissingIndexes.h"

namespace cordboard::workbench {

namespace {

// So many bytes stay in memory.
constexpr std::size_t much = 65536;

// What the workbench keeps of itself, the history with it, is no part of a state.
bool IsOfTheExchange(std::string_view table) { return !table.starts_with("Cordboard"); }

}  // namespace

Recording::Recording(Connection& connection) : connection_(connection), store_(connection), transaction_(connection) {
  AddMissingIndexes(connection_);
  mark_ = store_.Mark();
  CmdId_ = store_.CmdId();
  Begin();
  log_.emplace(connection_, IsOfTheExchange);
}

// Where somebody has written the file who keeps no history, that is a state of its own.
void Recording::Begin() {
  if (!store_.Exists()) {
    store_.Make();
    store_.Add(0, {.kind = StateKind::Start}, CmdId_);
    return;
  }
  const State newest = store_.Newest();
  number_ = newest.number + 1;
  if (newest.timesWritten != connection_.TimesWritten()) store_.Add(number_++, {.kind = StateKind::Outside}, CmdId_);
}

void Recording::AddText(const std::string& plan, const std::string& text) {
  if (texts_.empty() || texts_.back().first != plan) texts_.emplace_back(plan, "");
  texts_.back().second += text;
  sizeOfTexts_ += text.size();
}

void Recording::Relieve() {
  if (log_->size() + sizeOfTexts_ > much) WriteOut();
}

void Recording::WriteOut() {
  for (const RowBlock& rows : log_->Take()) store_.AddRows(number_, rows);
  for (const auto& [plan, text] : texts_) store_.AddText(number_, plan, text);
  texts_.clear();
  sizeOfTexts_ = 0;
}

// Gives whether anything has changed.
bool Recording::Complete() {
  WriteOut();
  log_.reset();
  return store_.SumUp(number_) || store_.CmdId() != CmdId_;
}

int Recording::Commit(const StateNote& note) {
  Complete();
  store_.Add(number_, note, CmdId_);
  transaction_.Commit();
  return number_;
}

std::optional<int> Recording::CommitChanges(const StateNote& note) {
  if (Complete()) {
    store_.Add(number_, note, CmdId_);
    transaction_.Commit();
    return number_;
  }
  RollBack();
  return std::nullopt;
}

void BeginHistory(Connection& connection, const std::string& message) {
  StateStore store(connection);
  store.Make();
  store.Add(0, {.kind = StateKind::New, .message = message}, store.CmdId());
}

}  // namespace cordboard::workbench
