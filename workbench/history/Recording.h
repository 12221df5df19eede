// A transaction on an exchange whose changes become a state of its history.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "workbench/database/Connection.h"
#include "workbench/database/DatabaseTransaction.h"
#include "workbench/database/RowLog.h"
#include "workbench/history/StateStore.h"

namespace cordboard::workbench {

class Recording {
 public:
  // It is rolled back where it ends without a commit.
  explicit Recording(Connection& connection);
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;

  StateStore& store() { return store_; }
  // Of the exchange as it stood when the recording began (StateStore::Mark).
  const std::string& mark() const { return mark_; }

  // A text that is applied: a plan, or a piece of one.
  void AddText(const std::string& plan, const std::string& text);
  // Between two actions: what was recorded leaves the memory once it is much.
  void Relieve();

  // Gives the number of the state.
  int Commit(const StateNote& note);
  // The same where anything has changed; otherwise nothing is kept.
  std::optional<int> CommitChanges(const StateNote& note);
  void RollBack() { transaction_.RollBack(); }

 private:
  void Begin();
  void WriteOut();
  bool Complete();

  Connection& connection_;
  StateStore store_;
  DatabaseTransaction transaction_;
  std::string mark_;
  int number_ = 1;
  Value CmdId_;                                             // the counter of identifiers, before
  std::vector<std::pair<std::string, std::string>> texts_;  // plans, and what of them has not been written out
  std::size_t sizeOfTexts_ = 0;
  std::optional<RowLog> log_;
};

// Begins the history of an exchange that is being made.
void BeginHistory(Connection& connection, const std::string& message);

}  // namespace cordboard::workbench
