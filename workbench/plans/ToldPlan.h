// The text of a plan, and lines of an exchange, as they may be shown.
#pragma once

#include <string>

namespace cordboard::workbench {

// Secrets are hidden. What cannot be read as lines of a plan, such as a table that was applied, may hold secrets
// anywhere: a comment stands in its place.
std::string ToldPlan(const std::string& text);

// The same of a line that an exchange has generated.
std::string ToldLine(const std::string& line);

}  // namespace cordboard::workbench
