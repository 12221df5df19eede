// A host with nothing after it: its form is empty, it finds no rows and offers no values, and every step succeeds and
// leaves nothing. A host that needs a few operations alone derives from it and overrides those.
#pragma once

#include "script/CallHost.h"

namespace cordboard {

class NullHost : public CallHost {
 protected:
  // Even a statement that counts gives no row.
  HostAnswer Answer(const HostCall& call) override {
    if (call.operation == "scGetParamValue" || call.operation == "scSQLSelect") return {};
    if (call.operation == "scIsValueEqual" || call.operation == "scGetAutoEquOptionValue") return {false};
    if (call.operation == "scGetNumberOfValidValues") return {true, 0};
    if (call.operation == "scBuildCmdID") return {++lastCmdId_};
    return {true};
  }

 private:
  int lastCmdId_ = 0;
};

}  // namespace cordboard
