// The form of a record that is edited.
#pragma once

#include <vector>

#include "workbench/actions/Filling.h"

namespace cordboard::cli {

// The form shows the record that is selected, with the new values. Ends the subcommand where there is no such record,
// or none that can be changed.
workbench::Filling FillSelected(workbench::Session& session, const workbench::FormDefinition& form,
                                const std::vector<workbench::Assignment>& selection,
                                const std::vector<workbench::Assignment>& given);

}  // namespace cordboard::cli
