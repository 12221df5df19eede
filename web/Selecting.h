// Which record a page is about: the address has it as "of=DIR=100", once for each parameter that tells it.
#pragma once

#include <string>
#include <vector>

#include "web/Request.h"
#include "workbench/actions/Records.h"

namespace cordboard::web {

// The form of the command that is asked for as "command"; fails with Failed.
const workbench::FormDefinition& FormOf(const Fields& fields);

// A text that becomes part of a line of a plan; fails with Failed where it is none, or more than one.
const std::string& OneLine(const std::string& text);

// The selection that is asked for; fails with Failed where it is none.
std::vector<workbench::Assignment> SelectionOf(const Fields& fields);
// The one record that it selects; fails with Failed.
workbench::StoredRecord RecordOf(workbench::Exchange& exchange, const workbench::FormDefinition& form,
                                 const std::vector<workbench::Assignment>& selection);

// The same record by what a line of a plan finds it by, here and in another exchange; fails with Failed where there is
// no such record.
std::vector<workbench::Assignment> SelectionForLines(workbench::Exchange& exchange,
                                                     const workbench::FormDefinition& form,
                                                     const std::vector<workbench::Assignment>& selection);

// The other way round: what an address has to say of a record.
Fields FieldsOf(const workbench::FormDefinition& form, const std::vector<workbench::Assignment>& selection);
// A record as it is read: "DIR=100, KEY=3".
std::string Named(const workbench::FormDefinition& form, const std::vector<workbench::Assignment>& selection);

}  // namespace cordboard::web
