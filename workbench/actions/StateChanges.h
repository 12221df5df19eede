// What a state of the history did to the records of commands.
#pragma once

#include <vector>

#include "workbench/actions/Changes.h"
#include "workbench/exchange/Exchange.h"

namespace cordboard::workbench {

class StateChanges {
 public:
  // Goes back and forth on the exchange, which is a copy and nobody else's: afterwards it stands at the state. Fails
  // with a HistoryError where it cannot be reached.
  StateChanges(Exchange& copy, int state);

  const std::vector<RecordChange>& records() const { return records_; }

 private:
  Changes changes_;
  std::vector<RecordChange> records_;
};

}  // namespace cordboard::workbench
