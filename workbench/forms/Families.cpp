#include "workbench/forms/Families.h"

#include "entry/Registry.h"

namespace cordboard::workbench {

namespace {

constexpr Family families[] = {
    {"numberplan", "Number plan"},
    {"system", "System data"},
    {"authorisation", "Abbreviated numbers and authorisation"},
    {"keyextensions", "Key extensions and directory numbers"},
    {"extensions", "General extensions"},
    {"groups", "Groups"},
    {"operators", "Operators"},
    {"routes", "Routes"},
    {"cordless", "Cordless system"},
    {"ip", "IP extensions and integrated voice mail"},
    {"logging", "Call logging and external devices"},
    {"links", "Links to information computers and voice mail"},
};

}  // namespace

std::span<const Family> Families() { return families; }

std::vector<const FormDefinition*> FormsOf(const Family& family) {
  std::vector<const FormDefinition*> forms;
  for (const Command& command : Registry())
    if (command.family == family.name) forms.push_back(FindForm(command.name));
  return forms;
}

}  // namespace cordboard::workbench
