// Instructions, which do not depend on what else the machine does.
#pragma once

#include <string>

namespace cordboard::bench {

bool HasValgrind();

// How many instructions a command takes, from the words that start it; or of these those alone that it takes within a
// function, which is named as in "Workload::Edit()" with all its namespaces.
double InstructionsOf(const std::string& command, const std::string& within = "");

}  // namespace cordboard::bench
