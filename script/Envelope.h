// The transaction envelope of workers that change the database.
#pragma once

#include <string>

#include "script/HostOperations.h"
#include "script/Report.h"

namespace cordboard {

// Commits where the flag is True and rolls back otherwise, and gives the flag back: a commit or a rollback that fails
// is reported and changes nothing.
inline bool CloseTransaction(const std::string& context, bool flag) {
  if (flag) {
    if (!scCommitTransaction()) Report(context, Message::CommitFailed);
  } else {
    if (!scRollBackTransaction()) Report(context, Message::RollBackFailed);
  }
  return flag;
}

// Starts a transaction, does the work, commits or rolls back, and gives the work's answer. A start that fails skips the
// work, is reported, and is rolled back all the same. A failure of the call leaves the transaction open.
template <typename Work>
bool InTransaction(const std::string& context, Work work) {
  bool flag = scStartTransaction();
  if (flag) {
    flag = work();
  } else {
    Report(context, Message::StartFailed);
  }
  return CloseTransaction(context, flag);
}

}  // namespace cordboard
