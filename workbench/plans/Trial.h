// Lines of a plan that are tried together: they are kept together, or leave nothing.
#pragma once

#include <string>
#include <vector>

#include "workbench/actions/Changes.h"
#include "workbench/actions/UserAction.h"
#include "workbench/host/Session.h"
#include "workbench/plans/RecordTable.h"

namespace cordboard::workbench {

struct TriedLine {
  std::string command;
  std::string text;
};

class Trial {
 public:
  // What is not kept is rolled back.
  Trial(Session& session, Changes& changes);

  // Writes the action as a line, and performs what is read from it, as "apply" does. Gives why it is refused; nothing
  // where it was done.
  std::vector<Problem> Do(const UserAction& action);
  // The records of the table that the last line has added or changed, as they are now.
  std::vector<Record> Made(const RecordTable& table) const;

  // Puts the lines behind those that were kept before.
  void Keep(std::vector<TriedLine>& kept);

 private:
  Session& session_;
  Changes& changes_;
  Transaction transaction_;
  std::vector<TriedLine> lines_;
  std::vector<RecordChange> changed_;
};

}  // namespace cordboard::workbench
