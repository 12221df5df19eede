// The transaction envelope of workers that change the database.
#pragma once

#include "script/HostOperations.h"
#include "script/Report.h"

namespace cordboard {

// Starts a transaction, does the work, commits where it answers True and rolls back otherwise, and gives the work's
// answer: a commit or a rollback that fails is reported and changes nothing. A start that fails skips the work, is
// reported, and is rolled back all the same. A failure of the call leaves the transaction open.
template <typename Work>
bool InTransaction(const Reporter& fail, Work work) {
  const bool flag = scStartTransaction() ? work() : fail(StartFailed);
  if (flag) {
    if (!scCommitTransaction()) fail(CommitFailed);
  } else {
    if (!scRollBackTransaction()) fail(RollBackFailed);
  }
  return flag;
}

// Commits. A commit that fails is reported and rolled back.
inline void CommitOrRollBack(const Reporter& fail) {
  if (scCommitTransaction()) return;
  fail(CommitFailed);
  if (!scRollBackTransaction()) fail(RollBackFailed);
}

// The transaction of adds that never roll back what was refused, be it the start: then nothing closes it here, and the
// host has to. A commit that fails is reported and rolled back, and the answer stays that of the work.
template <typename Work>
bool InTransactionLeftOpen(const Reporter& fail, Work work) {
  if (!scStartTransaction()) return fail(StartFailed);
  const bool flag = work();
  if (flag) CommitOrRollBack(fail);
  return flag;
}

}  // namespace cordboard
