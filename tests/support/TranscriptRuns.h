// The runs of a block, made from their lines.
#pragma once

#include <string>
#include <vector>

#include "support/Definitions.h"
#include "support/TranscriptFile.h"

namespace cordboard {

// The first word of a line, and what follows it.
std::string Word(const std::string& text);
std::string Rest(const std::string& text);

// Sets what a default of a file or an override of a run names: command, release, record or definition.
void Override(Action& action, const std::string& word, const std::string& value, const Place& place);

class RunMaker {
 public:
  // `usual` is the action as the file has it, `variables` are the values of the loops around the run.
  RunMaker(const Definitions& definitions, const Action& usual, const Variables& variables)
      : definitions_(definitions), usual_(usual), variables_(variables) {}

  // The run of these lines, from `run` to its end, and one more for each `or` in it. `shown` tells the values of the
  // loops.
  std::vector<TranscriptRun> Make(const std::vector<TranscriptLine>& lines, const std::string& shown) const;

 private:
  std::string Substituted(const std::string& text, const Place& place) const;
  Action MakeAction(const std::string& text, const Place& place) const;
  void Append(TranscriptRun& run, const TranscriptLine& line) const;
  TranscriptRun MakeAlternative(TranscriptRun run, const TranscriptLine& line) const;
  std::string ReadOutcome(const TranscriptLine& end) const;

  const Definitions& definitions_;
  const Action& usual_;
  const Variables& variables_;
};

}  // namespace cordboard
