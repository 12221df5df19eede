// What may be typed in the place of an argument, for completion.
#pragma once

#include <string>
#include <vector>

#include "workbench/forms/FormDefinition.h"
#include "workbench/forms/ValueList.h"

namespace cordboard::cli {

// Whole words, with descriptions: a word that others go on from ends with a sign such as "=" or ":".
using Candidates = std::vector<workbench::ValidValue>;

Candidates CommandNames();
Candidates ParameterNames(const workbench::FormDefinition& form);

// NAME=VALUE, of a form that is filled in: its parameters, and once one is typed the values that are valid now, after
// what is given before.
Candidates FormValues(const std::string& file, const workbench::FormDefinition& form,
                      const std::vector<std::string>& given, const std::string& word);
// NAME=VALUE, of a selection of records: columns, and the values that are stored; those of secrets are not told.
Candidates StoredValues(const std::string& file, const workbench::FormDefinition& form,
                        const std::vector<std::string>& given, const std::string& word);

// A line of a plan, as far as it is typed: "KSEXI:DIR=100,ITYPE=".
Candidates LineContinued(const std::string& file, const std::string& line);

}  // namespace cordboard::cli
