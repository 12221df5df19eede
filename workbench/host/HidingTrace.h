// A host that notes every operation as TracingHost does, but for the secrets of a form: they are hidden by their place
// in the calls, whatever they are.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "script/TracingHost.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::workbench {

// The places in which a call or its answer has a secret:
//
//   - an operation on the parameter, by its name: what it passes and what comes back;
//   - the column of an insert, an update or a select, and of the rows that a query gives;
//   - in a statement what is quoted behind "NAME =", in a line of the debug window all that stands behind it;
//   - where the parameter has a check: what a check compares, and the value before.
class HidingTrace : public TracingHost {
 public:
  HidingTrace(std::shared_ptr<Host> next, const FormDefinition& form);

 protected:
  std::string Noted(const HostCall& call) const override { return TraceText(Shown(call)); }
  std::string Noted(const HostAnswer& answer, const HostCall& call) const override {
    return TraceText(Shown(answer, call));
  }

 private:
  bool IsSecret(const Argument& name) const;
  HostCall Shown(HostCall call) const;
  HostAnswer Shown(HostAnswer answer, const HostCall& call) const;
  void HideInColumns(HostCall& call, std::size_t columns) const;
  std::string HiddenInStatement(std::string sql) const;
  std::string HiddenInLine(std::string line) const;
  // Whether each of the columns that the call asks for is secret; of none where that is not told.
  std::vector<bool> SecretColumns(const HostCall& call) const;

  std::vector<std::string> secrets_;
  bool compared_ = false;
};

}  // namespace cordboard::workbench
