// The lists of valid values of the form that is open: the library builds them when they are asked for, and checks
// change lists that stand.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "script/List.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/forms/Form.h"
#include "workbench/forms/ValueList.h"

namespace cordboard::workbench {

class FormLists {
 public:
  // Has the library build the list of a parameter: a nested Run, whose operations go to Current().
  using Build = std::function<bool(const std::string& parameter)>;

  FormLists(Exchange& exchange, const Form& form, const Build& build)
      : exchange_(exchange), form_(form), build_(build) {}

  // The list of a parameter as it is built anew for the form as it now is. Nothing where the library builds none or
  // fails to.
  const ValueList* Fresh(const std::string& parameter);

  // The parameter whose check runs, and the one that operations without a name mean: the one whose list is being built,
  // where there is one, since a check may ask for lists.
  void Checking(const std::string& parameter) { checked_ = parameter; }
  const std::string& Checked() const { return checked_; }
  const std::string& Meant() const { return building_.empty() ? checked_ : building_.back(); }

  // What an operation changes: the list of the parameter while it is being built, and at any other time the changes
  // that are made to it.
  ValueList& Named(const std::string& parameter);
  ValueList& Current() { return Named(Meant()); }
  // Fixed values of the parameter that is meant, in one definition.
  void CollectFixed(int definition) { Current().Collect(Fixed(Meant(), definition)); }
  // Adds the values that are not blank.
  void Push(const std::string& parameter, const List& values);

  // Whether a check has taken the value out of the list.
  bool IsTakenOut(const std::string& parameter, const std::string& value) {
    return changes_[parameter].TakesAway(value);
  }
  void ForgetChanges(const std::string& parameter) { changes_.erase(parameter); }

 private:
  bool IsBuilding(const std::string& parameter) const;
  bool BuildAnew(const ParameterDefinition& parameter);
  std::shared_ptr<const DescribedValues> Fixed(const std::string& parameter, int definition);

  Exchange& exchange_;
  const Form& form_;
  const Build& build_;
  std::map<std::string, ValueList> lists_;
  // What checks have changed in lists that stood: built anew, a list keeps these changes until its parameter is reset.
  std::map<std::string, ValueList> changes_;
  std::vector<std::string> building_;  // lists may need others
  std::string checked_;
};

}  // namespace cordboard::workbench
