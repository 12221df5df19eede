// What may be typed in the place of an argument, for completion.
#pragma once

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "workbench/actions/UserAction.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/forms/FormDefinition.h"
#include "workbench/forms/ValueList.h"

namespace cordboard::cli {

// Whole words, with descriptions: a word that others go on from ends with a sign such as "=" or ":". There may be some
// among them that do not begin as what is typed.
using Candidates = std::vector<workbench::ValidValue>;

// Where values are looked up: in an exchange that is opened when that is needed, and so many of each list at most.
struct LookUp {
  std::function<workbench::Exchange&()> exchange;
  std::size_t most = std::numeric_limits<std::int32_t>::max();
};

// Puts what is typed already before each word.
Candidates After(const std::string& typed, Candidates candidates);

Candidates CommandNames();
Candidates ParameterNames(const workbench::FormDefinition& form);

// The states of the history, the newest first.
Candidates StateNumbers(const LookUp& lookUp);

// NAME=VALUE, of a form that is filled in: its parameters, and once one is typed the values that are valid now, after
// what is given before.
Candidates FormValues(const LookUp& lookUp, const workbench::FormDefinition& form,
                      const std::vector<workbench::Assignment>& given, const std::string& word);
// The same of an add or an edit, after what is typed of it.
Candidates NewValues(const LookUp& lookUp, const workbench::FormDefinition& form, const workbench::UserAction& soFar,
                     const std::string& word);
// NAME=VALUE, of a selection of records: columns, and the values that are stored; those of secrets are not told.
Candidates StoredValues(const LookUp& lookUp, const workbench::FormDefinition& form,
                        const std::vector<workbench::Assignment>& given, const std::string& word);

}  // namespace cordboard::cli
