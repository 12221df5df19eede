// The workbench as the library's host: an exchange's databases, the form that is open and the messages.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "script/Host.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/forms/Form.h"
#include "workbench/host/FormLists.h"
#include "workbench/host/Messages.h"

namespace cordboard::workbench {

class WorkbenchHost : public Host {
 public:
  explicit WorkbenchHost(Exchange& exchange) : exchange_(exchange) {}

  // How the host has the library build the list of a parameter: a nested Run. Set by the session.
  void SetBuildList(FormLists::Build build) { buildList_ = std::move(build); }

  // Opens an empty form of the command; the form before it is closed.
  Form& OpenForm(const FormDefinition& definition);
  // Lists and messages are gone with it.
  void CloseForm();
  Form& form() { return open().form; }

  // The list of a parameter as it is built anew for the form as it now is. Nothing where the library builds none or
  // fails to.
  const ValueList* FreshList(const std::string& parameter) { return lists().Fresh(parameter); }
  // Whether a check has taken the value out of the list of a parameter.
  bool IsTakenOut(const std::string& parameter, const std::string& value) {
    return lists().IsTakenOut(parameter, value);
  }
  // The parameter that a static check runs for.
  void Checking(const std::string& parameter) { lists().Checking(parameter); }

  // The statement of the query that was the last to run, where it found nothing.
  const std::string& FoundNothing() const { return foundNothing_; }
  void ForgetQueries() { foundNothing_.clear(); }

  // Says how many transactions stand around the Run that begins: the library can close those alone that it has started
  // itself. Gives what was said before.
  int Enclose(int transactions) { return std::exchange(enclosing_, transactions); }

  // Takes a text that the library shows in a box of its own for a message.
  void ShowBox(const std::string& text);

  std::vector<ReportedMessage> TakeMessages();
  std::vector<std::string> TakeDebugLines();

  Value scGetParamValue(const std::string& name) override;
  bool scSetParamValue(const std::string& name, const Value& value) override;
  bool scResetParam(const std::string& name) override;
  bool scSetParamOptional(const std::string& name, bool optional) override;
  void scSetCanHaveParamRange(const std::string& name, bool allowed) override;
  void scSetCanHaveParamMultiple(const std::string& name, bool allowed) override;
  Value scIsValueEqual(const Value& value) override;
  bool scGetValueArray(const std::string& name, List& values) override;
  void scGetPreviousValue(Value& previous) override;
  bool scActiveDefinition(const std::string& name, const Value& definition) override;
  void SetTemplate(bool on) override;
  bool scCollectSingleValues(const std::string& sql, const Selector& database) override;
  bool scAddSingleValues(const std::string& sql) override;
  bool scSubtractSingleValues(const std::string& sql) override;
  bool scCollectValuesAndDesc(const std::string& sql, const Selector& database) override;
  bool scSQLSelectValuesAndDesc() override;
  bool scSQLSelectValuesAndDescByDefinition(const Value& definition) override;
  bool scPushValidValues(const std::variant<Value, List>& values, const std::optional<std::string>& name) override;
  bool scPushValidRangeValues(const Value& from, const Value& to) override;
  bool scRemoveFromValidValues(const std::string& name, const Value& value) override;
  bool scRemoveFromValidRangeValues(const std::string& name, const Value& from, const Value& to) override;
  bool scGetValidValues(const std::string& name, List& values) override;
  bool scGetNumberOfValidValues(const std::string& name, const Value& definition, Value& count) override;
  bool scRunQuery(const std::string& sql, RowSet* rows, const Selector& database) override;
  bool scSQLInsert(const std::string& table, const List& columns, const List& values) override;
  bool scSQLUpdate(const std::string& table, const List& columns, const List& values, const List& keys,
                   const List& keyValues) override;
  RowSet scSQLSelect(const std::string& table, const List& columns, const List& keys, const List& keyValues) override;
  Value scBuildCmdID() override;
  bool scStartTransaction() override;
  bool scCommitTransaction() override;
  bool scRollBackTransaction() override;
  bool scNANSIinitiate(const Value& numse, const Value& numtyp, Value& code) override;
  bool scNANSIremoveFromBlockedRange(const Value& numse, const Value& numtyp) override;
  bool scGetAutoEquOptionValue(Value& clause) override;
  void scFilterEQU(const Value& first, const Value& second) override;
  void scErrorMessage(int first, int second, int third, const std::string& context, const Value& code,
                      const std::vector<Value>& arguments) override;
  void scPrintToDebugWindow(const std::string& line) override;

 private:
  struct OpenedForm {
    OpenedForm(Exchange& exchange, const FormDefinition& definition, const FormLists::Build& build)
        : form(definition), lists(exchange, form, build) {}
    Form form;
    FormLists lists;
  };

  OpenedForm& open();
  FormLists& lists() { return open().lists; }
  bool Has(const std::string& parameter) { return form().definition().Knows(parameter); }
  bool ChangeList(void (ValueList::*change)(ListStatement), const std::string& sql, const std::string& selector);
  // Rows that are written by names go to the templates where a template command is at work.
  const char* RowDatabase() const { return template_ ? "site" : "dynamic"; }
  template <typename Step>
  bool Succeeds(Step step);
  template <typename Step>
  bool Closes(Step step);

  Exchange& exchange_;
  FormLists::Build buildList_;
  std::optional<OpenedForm> open_;
  bool template_ = false;
  int enclosing_ = 0;
  std::string seriesRefusal_;
  std::string foundNothing_;
  std::vector<ReportedMessage> messages_;
  std::vector<std::string> debugLines_;
};

}  // namespace cordboard::workbench
