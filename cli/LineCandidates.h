// How a line of a plan may go on, for completion.
#pragma once

#include <string>

#include "cli/Candidates.h"

namespace cordboard::cli {

// Of a line as far as it is typed: "KSEXI:DIR=100,ITYPE=".
Candidates LineContinued(const LookUp& lookUp, const std::string& line);

}  // namespace cordboard::cli
