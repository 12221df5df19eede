// What a command's form is: its parameters, its record and what the record handling does (data/forms/<COMMAND>.json).
// What the command serves, and which digits a name tells, is not said there again (workbench/forms/FormReader.h).
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/forms/FoldingList.h"
#include "workbench/forms/ParameterList.h"

namespace cordboard::workbench {

struct DatabaseSchema;

// What the record handling does after an action, where the command's rules leave it to the host.
struct RecordHandling {
  bool removeRowAfterDelete = false;
  std::vector<std::string> writeAfterEdit = {};  // columns that an edit leaves as they were
};

// The command whose records are templates for those of another, and the parameter that has a template's name.
struct TemplatesOf {
  std::string command;
  std::string name;
};

// What stands in the place of a secret.
inline constexpr const char* hiddenValue = "***";

// What an add is given, or what selects a record, in the order typed.
struct Assignment {
  std::string name;
  std::string value;
};

// A line that stands beside another one of the same record. It has these parameters alone.
struct SideLine {
  std::vector<std::string> key;  // in which the two lines agree; none: records of the command have one line each
  Assignment with;               // by which such a line is known
  std::string further = {};      // whose values it adds to those of the other line
};

// In what the lines of a command differ from what its form takes, so that an exchange's lines can be read.
struct LineForm {
  std::vector<std::string> derived = {};  // parameters of lines alone: their values follow from the record
  std::vector<std::string> untold = {};   // parameters that lines do not tell, and on which the derived ones depend
  std::string from = {};                  // the command whose records give the lines, where it is another one
  SideLine release = {};                  // in front of a line that uses a key: it takes the function off the key
  SideLine continued = {};                // behind a line that is full
};

struct FormDefinition {
  std::string command;
  std::string title;
  std::string help;                     // one sentence
  std::string table;                    // the table of its records
  std::string database = "dynamic";     // in which the table stands: "site" for templates
  std::vector<std::string> columns;     // the columns that "SetInfo" is given, "CMDID" first
  std::vector<std::string> shown = {};  // of these, those that the form shows
  ParameterList parameters = {};
  std::vector<std::string> key = {};  // the parameters that tell one record from another, as far as it has them
  FoldingList foldings = {};
  RecordHandling handling = {};
  LineForm lines = {};
  TemplatesOf templates = {};                         // no command: records are not made from templates
  std::vector<std::vector<std::string>> inStep = {};  // parameters whose values go together by their place
  std::vector<std::vector<std::string>> oneOf = {};   // sets of parameters, of which one has to be given whole
  // Some commands keep their records in two tables: a record for which one parameter is given stands in the second.
  // `second` is the form of those records, the same but for its table and its columns.
  std::shared_ptr<const FormDefinition> second = {};
  std::string secondWith = {};
  std::vector<std::string> elsewhere = {};  // parameters that only the records of the other table have
  std::vector<Assignment> assumed = {};     // what rules read or reset though the form does not show it
  std::string prepared = {};                // where rows stand before they are filled in: the one column they have
  bool ordered = false;  // values are set in the order of the parameters, whatever the order in which they are typed
  bool single = false;   // one record for the whole exchange: an add shows and changes the record that stands
  bool adds = false;
  bool edits = false;
  bool deletes = false;
  bool generates = false;

  const DatabaseSchema& Database() const;
  std::string Rows() const;  // what stands in a FROM for the rows of its records
  const ParameterDefinition* Find(std::string_view name) const;
  bool Knows(std::string_view name) const;         // whether it is a parameter, or assumed
  bool Shows(std::string_view column) const;       // whether the column is a parameter, or a whole of such
  std::size_t Place(std::string_view name) const;  // of a parameter in the order; after all for an unknown one
  bool IsSecret(std::string_view name) const;
  // The value as a message may tell it: *** for a secret, and nothing where the form does not have the name, which may
  // be that of a secret mistyped.
  std::string Told(const Assignment& assignment) const;
  bool IsElsewhere(std::string_view name) const;  // whether it, or the whole that it is a digit of, is in `elsewhere`
  const Folding* FoldingOf(std::string_view parameter) const;   // of a whole parameter, the first
  const Folding* FoldingWith(std::string_view subDigit) const;  // that a sub-digit parameter belongs to
  // The form of each table, the first one's first; the form of the record that has these values.
  std::vector<const FormDefinition*> OfEachTable() const;
  const FormDefinition& OfRecordWith(const std::vector<Assignment>& values) const;
};

// The forms of all commands that are built, by command name.
const FormDefinition* FindForm(std::string_view command);
std::vector<const FormDefinition*> Forms();

}  // namespace cordboard::workbench
