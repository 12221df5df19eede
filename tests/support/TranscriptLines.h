// The lines of a transcript, without comments and empty ones; a line with an open bracket goes on in the next, and so
// does one that ends with "+".
#pragma once

#include <string>
#include <vector>

#include "support/Definitions.h"

namespace cordboard {

std::vector<TranscriptLine> TranscriptLinesOf(const std::string& file, const std::string& text);

}  // namespace cordboard
