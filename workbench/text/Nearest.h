// "Did you mean": the nearest of some names to a mistyped one.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cordboard::workbench {

// A sentence such as " Did you mean KSEXI?", with the blank in front; nothing where no name is near.
std::string DidYouMean(std::string_view typed, const std::vector<std::string>& names);

}  // namespace cordboard::workbench
