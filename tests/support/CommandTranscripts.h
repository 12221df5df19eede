// The transcripts of the commands, as they lie in tests/commands/<family>/. Definitions that all commands share stand
// in tests/commands/common.transcript, those of a family in tests/commands/<family>/common.transcript.
#pragma once

#include <string>
#include <vector>

#include "support/TranscriptFile.h"

namespace cordboard {

// The paths from the root of the sources, in the order of their names.
std::vector<std::string> TranscriptFiles();

// One of them, read once.
const Transcript& TranscriptOf(const std::string& file);

// The one of a command. Fails where there is none.
const Transcript& TranscriptOfCommand(const std::string& command);

}  // namespace cordboard
