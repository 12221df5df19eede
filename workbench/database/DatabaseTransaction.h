// A transaction of the workbench's own on a connection.
#pragma once

#include "workbench/database/Connection.h"

namespace cordboard::workbench {

// Rolled back where it ends without Commit.
class DatabaseTransaction {
 public:
  explicit DatabaseTransaction(Connection& connection) : connection_(connection) { connection_.Start(); }
  ~DatabaseTransaction();
  DatabaseTransaction(const DatabaseTransaction&) = delete;
  DatabaseTransaction& operator=(const DatabaseTransaction&) = delete;
  void Commit();
  void RollBack();

 private:
  Connection& connection_;
  bool open_ = true;
};

}  // namespace cordboard::workbench
