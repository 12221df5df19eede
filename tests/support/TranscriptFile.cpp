#include "support/TranscriptFile.h"

#include <algorithm>
#include <iterator>

#include "support/TranscriptLines.h"
#include "support/TranscriptRuns.h"

namespace cordboard {

namespace {

// A loop: each row gives values to the names.
struct Loop {
  std::vector<std::string> names;
  std::vector<std::vector<std::string>> rows;
};

class Reader {
 public:
  explicit Reader(Definitions& definitions) : definitions_(definitions) {}

  Transcript Read(const TranscriptSource& source, bool common) {
    lines_ = TranscriptLinesOf(source.file, source.text);
    at_ = 0;
    while (!AtEnd()) ReadItem();
    if (common && !(transcript_.command.empty() && transcript_.blocks.empty()))
      throw TranscriptError(lines_.front().place, "a common file holds definitions alone");
    return transcript_;
  }

 private:
  bool AtEnd() const { return at_ == lines_.size(); }
  const TranscriptLine& Here() const { return lines_[at_]; }
  const TranscriptLine& Next() { return lines_[at_++]; }
  bool IsHere(const std::string& word) const { return !AtEnd() && Word(Here().text) == word; }

  std::vector<TranscriptLine> IndentedLines() {
    std::vector<TranscriptLine> lines;
    while (!AtEnd() && Here().indented) lines.push_back(Next());
    return lines;
  }

  void ReadItem() {
    const TranscriptLine line = Next();
    if (line.text.starts_with("===")) return ReadBlock(line);
    if (Definitions::IsDefinition(line)) return definitions_.Add(line, IndentedLines());
    const std::string word = Word(line.text);
    if (word == "silence" || word == "leaves-behind" || word == "nests") return ReadIrregularity(word, line);
    Default(word, Rest(line.text), line.place);
  }

  // What the actions of the file are unless they say otherwise.
  void Default(const std::string& word, const std::string& value, const Place& place) {
    if (word == "command") transcript_.command = value;
    Override(usual_, word, value, place);
  }

  // silence SetInfo at DELETE * FROM X: reason; nests EditInfo: reason
  void ReadIrregularity(const std::string& word, const TranscriptLine& line) {
    const std::size_t colon = line.text.find(": ");
    if (colon == std::string::npos) throw TranscriptError(line.place, word + " needs its reason after a colon");
    const std::string subject = Rest(line.text.substr(0, colon));
    const std::string reason = line.text.substr(colon + 2);
    const std::string action = Word(subject);
    const std::string refused = Rest(subject);
    if (action.empty() || (!refused.empty() && (word != "silence" || Word(refused) != "at")))
      throw TranscriptError(line.place, word + " needs an action, and a silence may have the call after \"at\"");
    if (word == "silence") transcript_.silences.push_back({action, Rest(refused), reason});
    if (word == "leaves-behind") transcript_.leavesBehind.push_back({action, reason});
    if (word == "nests") transcript_.nests.push_back({action, reason});
  }

  void ReadBlock(const TranscriptLine& head) {
    const std::string title(Trimmed(head.text.substr(3)));
    if (transcript_.command.empty()) throw TranscriptError(head.place, "a block stands after the name of the command");
    if (title.empty()) throw TranscriptError(head.place, "the block has no title");
    if (std::ranges::find(titles_, title) != titles_.end())
      throw TranscriptError(head.place, "this title is given already: " + title);
    titles_.push_back(title);
    TranscriptBlock block{title, {}, head.place};
    std::vector<Loop> loops;
    while (IsHere("run") || IsHere("for") || IsHere("once")) {
      loops.clear();
      if (IsHere("once")) Next();
      while (IsHere("for")) loops.push_back(ReadLoop());
      if (!IsHere("run")) throw TranscriptError(head.place, "a loop stands before a run");
      std::vector<std::vector<TranscriptLine>> runs;
      while (IsHere("run")) runs.push_back(RunLines());
      Repeat(block, loops, runs, 0, {}, "");
    }
    if (block.runs.empty()) throw TranscriptError(head.place, "the block has no run");
    transcript_.blocks.push_back(std::move(block));
  }

  // for NAME in "DIR" "CAT", or for NAME, value in, with its rows on indented lines after it.
  Loop ReadLoop() {
    const TranscriptLine head = Next();
    const std::size_t in = FindOutside(head.text, " in");
    if (in == std::string::npos || in < 4) throw TranscriptError(head.place, "a loop reads: for NAME in values");
    Loop loop{Parts(head.text.substr(4, in - 4), ','), {}};
    const std::string values(Trimmed(head.text.substr(in + 3)));
    if (loop.names.size() == 1) {
      for (const std::string& value : Parts(values, ' ')) loop.rows.push_back({value});
    } else if (!values.empty()) {
      throw TranscriptError(head.place, "the rows of a loop over several names stand on lines of their own");
    }
    while (!AtEnd() && Here().text.starts_with('|')) {
      const TranscriptLine line = Next();
      std::vector<std::string> row = Parts(line.text, '|');
      row.erase(row.begin());
      if (row.size() != loop.names.size())
        throw TranscriptError(line.place, "the row has " + std::to_string(row.size()) + " values, and not " +
                                              std::to_string(loop.names.size()));
      loop.rows.push_back(std::move(row));
    }
    if (loop.rows.empty()) throw TranscriptError(head.place, "the loop has no values");
    return loop;
  }

  // The lines of a run, from `run` to its end.
  std::vector<TranscriptLine> RunLines() {
    std::vector<TranscriptLine> lines{Next()};
    while (!AtEnd() && !IsHere("gives") && !IsHere("fails")) {
      if (IsHere("run") || IsHere("for") || Here().text.starts_with("===")) break;
      lines.push_back(Next());
    }
    if (!IsHere("gives") && !IsHere("fails"))
      throw TranscriptError(lines.front().place, "the run ends with neither gives nor fails");
    lines.push_back(Next());
    return lines;
  }

  // Makes the runs one after the other, for each row of each loop.
  void Repeat(TranscriptBlock& block, const std::vector<Loop>& loops,
              const std::vector<std::vector<TranscriptLine>>& runs, std::size_t depth, const Variables& variables,
              const std::string& shown) {
    if (depth == loops.size()) {
      for (const std::vector<TranscriptLine>& lines : runs)
        std::ranges::move(RunMaker(definitions_, usual_, variables).Make(lines, shown), std::back_inserter(block.runs));
      return;
    }
    for (const std::vector<std::string>& row : loops[depth].rows) {
      Variables bound = variables;
      std::string text = shown;
      for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string& name = loops[depth].names[i];
        bound[name] = definitions_.Substituted(row[i], variables, runs.front().front().place);
        text += (text.empty() ? "" : ", ") + name + " = " + bound[name];
      }
      Repeat(block, loops, runs, depth + 1, bound, text);
    }
  }

  Definitions& definitions_;
  Action usual_;
  Transcript transcript_;
  std::vector<std::string> titles_;
  std::vector<TranscriptLine> lines_;
  std::size_t at_ = 0;
};

}  // namespace

Transcript ReadTranscript(const TranscriptSource& source, const std::vector<TranscriptSource>& common) {
  Definitions definitions;
  for (const TranscriptSource& shared : common) Reader(definitions).Read(shared, true);
  return Reader(definitions).Read(source, false);
}

}  // namespace cordboard
