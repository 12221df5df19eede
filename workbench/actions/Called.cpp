#include "workbench/actions/Called.h"

#include "workbench/forms/FormDefinition.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

std::string Called(const Holder& holder) {
  const FormDefinition* form = FindForm(holder.record->command);
  const std::string key = Separated(holder.key, ",", [&](const auto& column) {
    const auto& [name, value] = column;
    return name + "=" + (form != nullptr && form->IsSecret(name) ? hiddenValue : value);
  });
  return holder.record->is + (key.empty() ? "" : " " + key) + " (" + holder.record->command + ")";
}

}  // namespace cordboard::workbench
