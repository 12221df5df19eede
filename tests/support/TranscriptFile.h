// A file of transcripts, read: the blocks of a command, each with its runs, and what the rules of the command ask for
// against the general order. docs/transcripts.md describes the format.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "script/Action.h"
#include "support/Definitions.h"

namespace cordboard {

// One action, the calls that it has to make, and what it has to come to.
struct TranscriptRun {
  Action action;
  // What the form holds; with a form the reads of it need not be written. Without one they are calls like any other.
  bool hasForm = false;
  std::map<std::string, Value> form;
  std::vector<ExpectedCall> calls;
  std::string outcome;  // "True", "False", or the cause of the failure
  // An alternative ends where another answer makes it end: it need not read all that the form gives.
  bool isAlternative = false;
  std::string variables;  // what stands for the names of a loop, to be shown
  Place place;
};

struct TranscriptBlock {
  std::string title;
  std::vector<TranscriptRun> runs;
  Place place;
};

// A False without a message. `refused` is a piece of the call whose refusal goes without; with "" the worker answers
// False although the host has refused nothing.
struct Silence {
  std::string action;
  std::string refused;
  std::string reason;
};

struct Irregularity {
  std::string action;
  std::string reason;
};

struct Transcript {
  std::string command;
  std::vector<TranscriptBlock> blocks;
  std::vector<Silence> silences;
  std::vector<Irregularity> leavesBehind;  // actions that leave a part of their work behind when they answer False
  std::vector<Irregularity> nests;         // actions that run a worker of another command in their own transaction
};

// Reads the text of a file; `common` are the texts that define names for several files.
struct TranscriptSource {
  std::string file;
  std::string text;
};
Transcript ReadTranscript(const TranscriptSource& source, const std::vector<TranscriptSource>& common = {});

}  // namespace cordboard
