// What the rules can leave behind in an exchange: records and marks of use that do not fit together, as the references
// describe it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/exchange/References.h"

namespace cordboard::workbench {

struct LeftBehind {
  enum class Kind {
    Missing,   // a record names or takes what is not there
    Blank,     // or a row that nobody has filled in
    Unmarked,  // it takes what is not marked as used
    Shared,    // it takes what another record has
    Unheld     // no record takes what is marked as used
  };

  Kind kind;
  const Thing* thing;
  std::string value;
  // The record that is not as it should be, and its column; nothing where the row of the thing alone tells.
  const Reference* reference = nullptr;
  std::optional<Holder> record = {};
  std::optional<Holder> other = {};  // the one that has had it longer, where it is shared

  std::string Identity() const;  // that no other one has
};

// In the order of the references.
std::vector<LeftBehind> FindLeftBehind(Exchange& exchange);
// Whether it is still so.
bool Stands(Exchange& exchange, const LeftBehind& found);

}  // namespace cordboard::workbench
