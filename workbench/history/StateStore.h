// Where states are kept: tables of their own in the file of the exchange, which no rule reads.
//   [Cordboard.States]    a row for each state (struct State), with the counter of identifiers as it was before it
//   [Cordboard.Changes]   blocks of the rows that it changed, as they were before it, and a sum of what it made of them
//   [Cordboard.Plans]     the text of its plans, piece by piece
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "workbench/database/Connection.h"
#include "workbench/database/RowBlock.h"
#include "workbench/history/State.h"

namespace cordboard::workbench {

class StateStore {
 public:
  explicit StateStore(Connection& connection) : connection_(connection) {}

  // Whether there are the tables. An exchange that was made before there was a history gets them when it is written.
  bool Exists() const;
  void Make();

  // All states, the oldest first, as they were written: what became of them FollowCourse finds out.
  std::vector<State> All() const;
  // Fails with a DatabaseError where there is none.
  State Newest() const;

  // Tells the exchange as it stands now from how it stood at any other time, and from any other exchange.
  std::string Mark() const;

  // Adds a state that ends now, by the user of this process. `CmdId` is the counter before it.
  void Add(int number, const StateNote& note, const Value& CmdId);
  // The newest state is how the exchange stands also after this transaction.
  void Confirm();
  void Drop(int number);

  void AddRows(int state, const RowBlock& rows);
  void AddText(int state, const std::string& plan, const std::string& text);
  // Looks at the rows that a state changed and keeps the sum of what they are now. Gives whether one differs.
  bool SumUp(int state);
  // Takes the exchange back to what it was before the state. Fails with a HistoryError where it is not what the state
  // has left.
  void TakeBack(int state);

  // Hands on the text of a state's plans, piece by piece.
  using TakeText = std::function<void(const std::string& plan, const std::string& text)>;
  void ReadTexts(int state, const TakeText& take) const;

  Value CmdId() const;

 private:
  using TakeRows = std::function<void(const Value& place, const RowBlock& rows, const std::string& sum)>;
  void EachBlock(int state, const TakeRows& take) const;

  Connection& connection_;
};

// A state that cannot be taken back, brought again or reached.
class HistoryError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace cordboard::workbench
