// The families of commands, in the order in which an exchange is set up.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/forms/FormDefinition.h"

namespace cordboard::workbench {

struct Family {
  std::string_view name;
  const char* title;
};

std::span<const Family> Families();
// The forms of its commands, in the order of the registry.
std::vector<const FormDefinition*> FormsOf(const Family& family);

}  // namespace cordboard::workbench
