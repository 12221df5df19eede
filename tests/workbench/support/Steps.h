// Counts what databases do: the steps and the statements of those that are opened while a counter lives. Steps do not
// depend on the machine, nor on what else it does.
#pragma once

#include <sqlite3.h>

namespace cordboard::workbench {

class StepCounter {
 public:
  StepCounter() { sqlite3_auto_extension(reinterpret_cast<void (*)()>(Watch)); }
  ~StepCounter() { sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(Watch)); }
  StepCounter(const StepCounter&) = delete;
  StepCounter& operator=(const StepCounter&) = delete;

  // The steps that the work takes, and how many statements it runs.
  template <typename Work>
  static long Steps(Work work) {
    const long before = steps;
    work();
    return steps - before;
  }
  template <typename Work>
  static long Statements(Work work) {
    const long before = statements;
    work();
    return statements - before;
  }

 private:
  static int Ended(unsigned, void*, void* statement, void*) {
    steps += sqlite3_stmt_status(static_cast<sqlite3_stmt*>(statement), SQLITE_STMTSTATUS_VM_STEP, 1);
    ++statements;
    return 0;
  }
  static int Watch(sqlite3* database, char**, const struct sqlite3_api_routines*) {
    return sqlite3_trace_v2(database, SQLITE_TRACE_PROFILE, Ended, nullptr);
  }

  static inline long steps = 0;
  static inline long statements = 0;
};

}  // namespace cordboard::workbench
