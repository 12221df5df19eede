#include "web/Selecting.h"

#include "workbench/actions/Selection.h"
#include "workbench/forms/Unknown.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/text/Escaped.h"
#include "workbench/text/Separated.h"
#include "workbench/text/Utf8.h"

namespace cordboard::web {

using workbench::Assignment;
using workbench::FormDefinition;

const FormDefinition& FormOf(const Fields& fields) {
  const std::string& command = fields["command"];
  if (const FormDefinition* form = workbench::FindForm(command)) return *form;
  throw Failed(NotFound, workbench::UnknownCommand(command));
}

const std::string& OneLine(const std::string& text) {
  if (!workbench::IsUtf8(text)) throw Failed(BadRequest, "A value is no UTF-8 text.");
  if (workbench::Escaped(text) != text) throw Failed(BadRequest, "A value is one line, without control characters.");
  return text;
}

std::vector<Assignment> SelectionOf(const Fields& fields) try {
  std::vector<Assignment> selection;
  for (const std::string& of : fields.Each("of")) selection.push_back(workbench::ParseAssignment(OneLine(of)));
  return selection;
} catch (const workbench::PlanLineError& error) {
  throw Failed(BadRequest, std::string("the selection ") + error.what());
}

workbench::StoredRecord RecordOf(workbench::Exchange& exchange, const FormDefinition& form,
                                 const std::vector<Assignment>& selection) {
  const auto found = FindRecord(exchange, form, selection);
  if (const auto* problem = std::get_if<workbench::Problem>(&found)) throw Failed(NotFound, problem->message);
  return std::get<workbench::StoredRecord>(found);
}

std::vector<Assignment> SelectionForLines(workbench::Exchange& exchange, const FormDefinition& form,
                                          const std::vector<Assignment>& selection) {
  const workbench::StoredRecord record = RecordOf(exchange, form, selection);
  const bool isByIdentifier = selection.size() == 1 && selection.front().name == "CMDID";
  return isByIdentifier ? workbench::SelectionOf(exchange, form, record) : selection;
}

Fields FieldsOf(const FormDefinition& form, const std::vector<Assignment>& selection) {
  Fields fields = {{"command", form.command}};
  for (const Assignment& each : selection) fields.Add("of", each.name + "=" + each.value);
  return fields;
}

std::string Named(const FormDefinition& form, const std::vector<Assignment>& selection) {
  return workbench::Separated(selection, ", ",
                              [&form](const Assignment& each) { return each.name + "=" + form.Told(each); });
}

}  // namespace cordboard::web
