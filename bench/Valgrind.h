// Instructions, which do not depend on what else the machine does.
#pragma once

#include <string>

namespace cordboard::bench {

bool HasValgrind();

// How many instructions a command takes, from the words that start it.
double InstructionsOf(const std::string& command);

}  // namespace cordboard::bench
