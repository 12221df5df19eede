#include "support/TranscriptRuns.h"

#include <algorithm>

namespace cordboard {

namespace {

void FillForm(TranscriptRun& run, const std::string& text, const Place& place) {
  run.hasForm = true;
  for (const std::string& part : Parts(text, ',')) {
    const std::size_t equals = FindOutside(part, "=");
    if (equals == std::string::npos) throw TranscriptError(place, "a form reads: form NAME=value, NAME=value");
    if (!run.form.emplace(NameIn(part.substr(0, equals)), ReadValue(part.substr(equals + 1), place)).second)
      throw TranscriptError(place, "the form holds this value already: " + part);
  }
}

}  // namespace

std::string Word(const std::string& text) { return text.substr(0, text.find(' ')); }
std::string Rest(const std::string& text) {
  const std::size_t blank = text.find(' ');
  return blank == text.npos ? "" : std::string(Trimmed(text.substr(blank)));
}

void Override(Action& action, const std::string& word, const std::string& value, const Place& place) {
  if (word == "command") return void(action.CmdName = NameIn(value));
  if (word == "release") return void(action.oaRelease = NameIn(value));
  const bool number =
      !value.empty() && value.size() < 10 && std::ranges::all_of(value, [](char c) { return c >= '0' && c <= '9'; });
  if (word == "record" && number) return void(action.CmdId = std::stoi(value));
  if (word == "definition" && number) return void(action.Definition = std::stoi(value));
  throw TranscriptError(place, "neither a definition nor a default: " + word + " " + value);
}

std::string RunMaker::Substituted(const std::string& text, const Place& place) const {
  return definitions_.Substituted(text, variables_, place);
}

std::vector<TranscriptRun> RunMaker::Make(const std::vector<TranscriptLine>& lines, const std::string& shown) const {
  TranscriptRun run;
  std::vector<TranscriptRun> alternatives;
  run.variables = shown;
  run.place = lines.front().place;
  run.action = MakeAction(Substituted(Rest(lines.front().text), run.place), run.place);
  bool reads = false;
  for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
    const std::string word = Word(lines[i].text);
    reads |= word == "read";
    if (word == "form") {
      FillForm(run, Substituted(Rest(lines[i].text), lines[i].place), lines[i].place);
    } else if (word == "or") {
      alternatives.push_back(MakeAlternative(run, lines[i]));
    } else {
      Append(run, lines[i]);
    }
  }
  if (run.hasForm && reads) throw TranscriptError(run.place, "a run has a form or writes its reads, and not both");
  run.outcome = ReadOutcome(lines.back());
  alternatives.insert(alternatives.begin(), std::move(run));
  return alternatives;
}

void RunMaker::Append(TranscriptRun& run, const TranscriptLine& line) const {
  for (ExpectedCall& call : definitions_.Expanded(line, variables_)) run.calls.push_back(std::move(call));
}

// or ANSWER: what follows when the call before it is answered so; call; call; gives False
TranscriptRun RunMaker::MakeAlternative(TranscriptRun run, const TranscriptLine& line) const {
  const std::size_t colon = FindOutside(line.text, ":");
  if (run.calls.empty()) throw TranscriptError(line.place, "there is no call before this or");
  if (colon == std::string::npos) throw TranscriptError(line.place, "an or reads: or answer: calls");
  const std::string answer = Rest(std::string(Trimmed(line.text.substr(0, colon))));
  if (answer.empty()) throw TranscriptError(line.place, "an or reads: or answer: calls");
  run.isAlternative = true;
  run.place = line.place;
  run.calls.back().answer = Substituted(answer, line.place);
  run.outcome = "False";
  std::vector<std::string> parts = Parts(line.text.substr(colon + 1), ';');
  if (!parts.empty() && (Word(parts.back()) == "gives" || Word(parts.back()) == "fails")) {
    run.outcome = ReadOutcome({parts.back(), true, line.place});
    parts.pop_back();
  }
  for (const std::string& part : parts) Append(run, {part, true, line.place});
  return run;
}

// gives False, fails TypeMismatch
std::string RunMaker::ReadOutcome(const TranscriptLine& end) const {
  const std::string outcome = Substituted(Rest(end.text), end.place);
  const bool truth = outcome == "True" || outcome == "False";
  if (outcome.empty() || truth != (Word(end.text) == "gives"))
    throw TranscriptError(end.place, "a run gives True or False, or fails with a cause");
  return outcome;
}

// SetInfo "DIR", "CAT" with release "R6", record 8
Action RunMaker::MakeAction(const std::string& text, const Place& place) const {
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

}  // namespace cordboard
