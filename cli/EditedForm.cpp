#include "cli/EditedForm.h"

#include "cli/Subcommands.h"
#include "workbench/actions/Records.h"
#include "workbench/actions/ShownValues.h"

namespace cordboard::cli {

workbench::Filling FillSelected(workbench::Session& session, const workbench::FormDefinition& form,
                                const std::vector<workbench::Assignment>& selection,
                                const std::vector<workbench::Assignment>& given) {
  if (!form.edits) throw Exit{Refused, "records of " + form.command + " cannot be changed"};
  const auto found = FindRecord(session.exchange(), form, selection);
  if (const auto* problem = std::get_if<workbench::Problem>(&found)) throw Exit{NotFound, problem->message};
  return workbench::FillFormOf(session, std::get<workbench::StoredRecord>(found), given);
}

}  // namespace cordboard::cli
