// Plays the answers of a transcript to its command, and compares every call whole.
#pragma once

#include <string>

#include "support/TranscriptFile.h"

namespace cordboard {

// Plays the runs of a block. Gives "" where every call and every outcome is as written, and else the first difference
// of each run: the calls before it, what was expected and where that stands, and what came.
std::string Replay(const TranscriptBlock& block);

}  // namespace cordboard
