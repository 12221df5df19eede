#include "support/TranscriptFile.h"

#include <algorithm>
#include <iterator>

#include "support/TranscriptLines.h"

namespace cordboard {

namespace {

// The first word of a line, and what follows it.
std::string Word(const std::string& text) { return text.substr(0, text.find(' ')); }
std::string Rest(const std::string& text) {
  const std::size_t blank = text.find(' ');
  return blank == text.npos ? "" : std::string(Trimmed(text.substr(blank)));
}

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

  void Override(Action& action, const std::string& word, const std::string& value, const Place& place) const {
    if (word == "command") return void(action.CmdName = NameIn(value));
    if (word == "release") return void(action.oaRelease = NameIn(value));
    const bool number = !value.empty() && std::ranges::all_of(value, [](char c) { return c >= '0' && c <= '9'; });
    if (word == "record" && number) return void(action.CmdId = std::stoi(value));
    if (word == "definition" && number) return void(action.Definition = std::stoi(value));
    throw TranscriptError(place, "neither a definition nor a default: " + word + " " + value);
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
      for (const std::vector<TranscriptLine>& lines : runs) MakeRuns(block, lines, variables, shown);
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

  // The run, and one more for each `or` in it.
  void MakeRuns(TranscriptBlock& block, const std::vector<TranscriptLine>& lines, const Variables& variables,
                const std::string& shown) const {
    TranscriptRun run;
    std::vector<TranscriptRun> alternatives;
    run.variables = shown;
    run.place = lines.front().place;
    run.action = MakeAction(definitions_.Substituted(Rest(lines.front().text), variables, run.place), run.place);
    bool reads = false;
    for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
      const std::string word = Word(lines[i].text);
      reads |= word == "read";
      if (word == "form") {
        FillForm(run, definitions_.Substituted(Rest(lines[i].text), variables, lines[i].place), lines[i].place);
      } else if (word == "or") {
        alternatives.push_back(MakeAlternative(run, lines[i], variables));
      } else {
        Append(run, lines[i], variables);
      }
    }
    if (run.hasForm && reads) throw TranscriptError(run.place, "a run has a form or writes its reads, and not both");
    run.outcome = ReadOutcome(lines.back(), variables);
    block.runs.push_back(std::move(run));
    std::ranges::move(alternatives, std::back_inserter(block.runs));
  }

  void Append(TranscriptRun& run, const TranscriptLine& line, const Variables& variables) const {
    for (ExpectedCall& call : definitions_.Expanded(line, variables)) run.calls.push_back(std::move(call));
  }

  // or ANSWER: what follows when the call before it is answered so; call; call; gives False
  TranscriptRun MakeAlternative(TranscriptRun run, const TranscriptLine& line, const Variables& variables) const {
    const std::size_t colon = FindOutside(line.text, ":");
    if (run.calls.empty()) throw TranscriptError(line.place, "there is no call before this or");
    if (colon == std::string::npos) throw TranscriptError(line.place, "an or reads: or answer: calls");
    const std::string answer = Rest(std::string(Trimmed(line.text.substr(0, colon))));
    if (answer.empty()) throw TranscriptError(line.place, "an or reads: or answer: calls");
    run.isAlternative = true;
    run.place = line.place;
    run.calls.back().answer = definitions_.Substituted(answer, variables, line.place);
    run.outcome = "False";
    std::vector<std::string> parts = Parts(line.text.substr(colon + 1), ';');
    if (!parts.empty() && (Word(parts.back()) == "gives" || Word(parts.back()) == "fails")) {
      run.outcome = ReadOutcome({parts.back(), true, line.place}, variables);
      parts.pop_back();
    }
    for (const std::string& part : parts) Append(run, {part, true, line.place}, variables);
    return run;
  }

  // gives False, fails TypeMismatch
  std::string ReadOutcome(const TranscriptLine& end, const Variables& variables) const {
    const std::string outcome = definitions_.Substituted(Rest(end.text), variables, end.place);
    const bool truth = outcome == "True" || outcome == "False";
    if (outcome.empty() || truth != (Word(end.text) == "gives"))
      throw TranscriptError(end.place, "a run gives True or False, or fails with a cause");
    return outcome;
  }

  // SetInfo "DIR", "CAT" with release "R6", record 8
  Action MakeAction(const std::string& text, const Place& place) const {
    Action action = usual_;
    const std::size_t with = FindOutside(text, " with ");
    const std::string what = text.substr(0, with);
    action.FunctionName = NameIn(Word(what));
    if (action.FunctionName.empty()) throw TranscriptError(place, "a run needs the function of its action");
    const std::string list = Rest(what);
    if (!list.empty()) action.ParamList = ReadList(list == "[]" ? list : "[" + list + "]", place);
    if (with == text.npos) return action;
    for (const std::string& part : Parts(text.substr(with + 6), ',')) Override(action, Word(part), Rest(part), place);
    return action;
  }

  static void FillForm(TranscriptRun& run, const std::string& text, const Place& place) {
    run.hasForm = true;
    for (const std::string& part : Parts(text, ',')) {
      const std::size_t equals = FindOutside(part, "=");
      if (equals == std::string::npos) throw TranscriptError(place, "a form reads: form NAME=value, NAME=value");
      if (!run.form.emplace(NameIn(part.substr(0, equals)), ReadValue(part.substr(equals + 1), place)).second)
        throw TranscriptError(place, "the form holds this value already: " + part);
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
