// The names of a transcript: a name stands for a piece of text, for a call or for several calls, with place-holders for
// its arguments. docs/transcripts.md says how they are written.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "support/Notation.h"

namespace cordboard {

// One line of a transcript, comments taken out and lines that go on joined.
struct TranscriptLine {
  std::string text;
  bool indented = false;
  Place place;
};

// A call that a run has to make.
struct ExpectedCall {
  std::string call;    // as script/TracingHost.h writes it
  std::string answer;  // as written, "" where it is the usual one
  Place place;         // where the block names it
};

// What names stand for, as written: "100" in quotes, True, a list.
using Variables = std::map<std::string, std::string>;

class Definitions {
 public:
  // Takes in `Name = ...`, `Name(one, two) = ...`, `Name(one, rest...) = ...`; the lines after it are the calls of a
  // definition with nothing on its first line.
  void Add(const TranscriptLine& first, const std::vector<TranscriptLine>& calls);
  static bool IsDefinition(const TranscriptLine& line);

  // The text with every {name} replaced: a text loses its quotes where it stands within one. `depth` counts the names
  // that stand for names.
  std::string Substituted(const std::string& text, const Variables& variables, const Place& place, int depth = 0) const;
  // The calls that a line of a run stands for: a call of the host, a `read`, or a name.
  std::vector<ExpectedCall> Expanded(const TranscriptLine& line, const Variables& variables, int depth = 0) const;

 private:
  struct Definition {
    std::vector<std::string> parameters;
    bool takesRest = false;  // the last parameter takes all further arguments
    bool isText = false;     // can stand within another text: one line and no parameters
    std::vector<TranscriptLine> lines;
  };

  std::vector<ExpectedCall> Applied(const std::string& call, const std::string& answer, const Place& place,
                                    int depth) const;
  Variables Bound(const std::string& name, const Definition& definition, const std::string& call,
                  const Place& place) const;

  std::map<std::string, Definition> definitions_;
};

// "DIR", and DIR all the same.
std::string NameIn(std::string_view text);

}  // namespace cordboard
