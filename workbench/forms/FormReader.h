// Reads a form (data/forms/<COMMAND>.json).
//
//   {"title": "Key extensions", "help": "One sentence.",
//    "parameters": [{"name": "DIR", "title": "Directory number", "mandatory": true, "multiple": true}, ...]}
//
// What a parameter has is told in workbench/forms/ParameterReader.h. A form has besides "key": the parameters that tell
// one record from another, where it is not the first that is stored; "prepared": the column that rows have which stand
// before they are filled in, "ordered", "single", "inStep", "oneOf", "folding", "after" {"removeRowAfterDelete",
// "writeAfterEdit"}, where records are made from templates "templates" {"command", "name"}: the command of the
// templates and the parameter that names one, "assumed" {name: value}: what rules read or reset though the form does
// not show it, and, where records stand in two tables, "second" {"table", "with"}: the other table, and the parameter
// that its records have.
//
// Where lines of the exchange differ from what the form takes, "lines" says so: "derived", parameters that lines alone
// have; "untold", parameters that lines do not have, of those that decide on the derived ones; "from", the command
// whose records give the lines, where it is another one; and lines that some records have besides, each {"key":
// [names], "with": {name: value}}: "release", in front of a line that uses a key, and "continued", behind a line that
// is full, with "further", the parameter with whose values it goes on.
//
// What is known elsewhere follows from there, and the form says only where it is otherwise:
//   what the command serves   from the table of its module: actions, lists and checks
//   "table" and "columns"     the table or view with the command's name, and its columns (data/schema.json); it stands
//                             in the "database" of the configuration, "dynamic", or of the templates, "site"
//   which values are fixed    where the command builds no list and data/values has one
//   "folding"                 from the names of the parameters (workbench/forms/Foldings.h)
#pragma once

#include <string>
#include <vector>

#include "workbench/forms/FormDefinition.h"

namespace cordboard::workbench {

class DataItem;

// The columns that a form with these parameters and foldings shows.
std::vector<std::string> ShownColumns(const FormDefinition& form);
// Reads the form of a command. Fails with a DataError.
FormDefinition ReadForm(const std::string& command, const DataItem& file);

}  // namespace cordboard::workbench
