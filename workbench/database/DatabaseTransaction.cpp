#include "workbench/database/DatabaseTransaction.h"

#include <exception>

namespace cordboard::workbench {

void DatabaseTransaction::Commit() {
  connection_.Commit();
  open_ = false;
}

void DatabaseTransaction::RollBack() {
  open_ = false;
  connection_.RollBack();
}

DatabaseTransaction::~DatabaseTransaction() {
  if (!open_) return;
  try {
    connection_.RollBack();
  } catch (const std::exception&) {
    // The database has rolled back by itself, or is gone: there is nothing left to undo.
  }
}

}  // namespace cordboard::workbench
