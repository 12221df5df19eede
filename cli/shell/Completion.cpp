#include "cli/shell/Completion.h"

#include <algorithm>
#include <filesystem>

#include "cli/Files.h"
#include "cli/LineCandidates.h"
#include "cli/shell/Typed.h"
#include "cli/shell/Words.h"
#include "script/Text.h"
#include "workbench/exchange/References.h"
#include "workbench/text/Escaped.h"

namespace cordboard::cli::shell {

namespace {

void Append(Candidates& candidates, const Candidates& others, const std::string& before = "") {
  for (const auto& [value, description] : others) candidates.push_back({before + value, description});
}

Candidates WordNames() {
  Candidates names;
  for (const Word& word : Words())
    names.push_back({*word.takes == '\0' ? word.name : std::string(word.name) + " ", word.help});
  return names;
}

// Files beside the one that is typed; a folder goes on.
Candidates FileNames(const std::string& typed) {
  const std::size_t slash = typed.rfind('/');
  const std::string folder = slash == typed.npos ? "" : typed.substr(0, slash + 1);
  Candidates files;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder.empty() ? "." : folder, error)) {
    const std::string name = folder + entry.path().filename().string();
    files.push_back({entry.is_directory(error) ? name + "/" : name, ""});
  }
  std::ranges::sort(files, {}, &workbench::ValidValue::value);
  return files;
}

Candidates Things() {
  Candidates things;
  for (const workbench::Thing& thing : workbench::ShippedReferences().things()) things.push_back({thing.name, ""});
  return things;
}

// The argument of a kind, behind what is given before it.
Candidates ArgumentsOf(const LookUp& lookUp, const std::string& kind, const Arguments& given, const std::string& word) {
  if (kind == "again") return {{"again", "the lines of the trial once more, on the exchange as it is now"}};
  if (kind == "COMMAND") return CommandNames();
  if (kind == "STATE") return StateNumbers(lookUp);
  if (kind == "FILE") return FileNames(word);
  if (kind == "THING") return Things();
  if (kind == "NAME") {
    Candidates names = CommandNames();
    for (const Word& each : Words()) names.push_back({each.name, each.help});
    return names;
  }
  if (kind == "PARAM") return ParameterNames(FormOf(given.front()));
  const Arguments before(std::ranges::find_if(given, [](const auto& each) { return each.find('=') != each.npos; }),
                         given.end());
  if (kind == "SELECTION") return StoredValues(lookUp, FormOf(given.front()), AssignmentsOf(before), word);
  if (kind == "NAME=VALUE") return FormValues(lookUp, FormOf(given.front()), AssignmentsOf(before), word);
  return {};
}

Candidates WordContinued(const LookUp& lookUp, const std::string& typed) {
  const std::size_t begin = typed.rfind(' ') + 1;
  Arguments given = Split(std::string_view(typed).substr(0, begin));
  const Word* word = FindWord(given.front());
  if (word == nullptr) return {};
  given.erase(given.begin());
  Candidates candidates;
  const std::string kind = word->ArgumentKinds().At(given.size());
  Append(candidates, ArgumentsOf(lookUp, kind, given, typed.substr(begin)), typed.substr(0, begin));
  return candidates;
}

// Where in what is typed the piece begins that a list shows.
std::size_t ShownFrom(const std::string& typed) { return typed.find_last_of(" ,:=&/") + 1; }

std::string CommonBeginning(const Candidates& candidates) {
  std::string common = candidates.front().value;
  for (const auto& [value, description] : candidates) {
    const auto end = std::ranges::mismatch(common, value).in1;
    common.erase(end, common.end());
  }
  // Not a piece of a character.
  while (!common.empty() && std::ranges::any_of(candidates, [&](const auto& each) {
    return each.value.size() > common.size() && (static_cast<unsigned char>(each.value[common.size()]) & 0xC0) == 0x80;
  }))
    common.pop_back();
  return common;
}

std::string Fitting(const std::string& text, std::size_t width) {
  return Length(text) <= width ? text : Left(text, static_cast<std::ptrdiff_t>(width));
}

std::string Padded(const std::string& text, std::size_t width) {
  return text + std::string(width - std::min(width, Length(text)), ' ');
}

// Names and values by columns, or each with its description in a row.
std::string Listed(const Candidates& shown, const Room& room) {
  std::size_t width = 0;
  for (const auto& [value, description] : shown) width = std::max(width, Length(value));
  const bool described = std::ranges::any_of(shown, [](const auto& each) { return !each.description.empty(); });
  const std::size_t columns = described ? 1 : std::max<std::size_t>(room.columns / (width + 2), 1);
  const std::size_t most = columns * std::max<std::size_t>(room.rows, 1);
  std::string list;
  for (std::size_t i = 0; i < std::min(shown.size(), most); ++i) {
    if (i > 0) list += i % columns == 0 ? "\n" : "  ";
    const auto& [value, description] = shown[i];
    const bool isLast = (i + 1) % columns == 0 && description.empty();
    list += Fitting(isLast ? value : Padded(value, width) + (described ? "  " + description : ""), room.columns - 1);
  }
  if (shown.size() > most) {
    const bool isCounted = shown.size() < mostLookedFor;
    list += "\n... and " + (isCounted ? std::to_string(shown.size() - most) + " more" : "more");
  }
  return list;
}

}  // namespace

Candidates Continuations(const LookUp& lookUp, const std::string& typed) {
  const std::size_t begin = std::min(typed.find_first_not_of(' '), typed.size());
  const std::string text = typed.substr(begin);
  Candidates candidates;
  if (text.empty() || text.find_first_of(" :") == text.npos) Append(candidates, WordNames(), typed.substr(0, begin));
  if (text.empty() || IsLine(text) || text.find(' ') == text.npos) {
    Append(candidates, LineContinued(lookUp, text), typed.substr(0, begin));
  } else {
    Append(candidates, WordContinued(lookUp, text), typed.substr(0, begin));
  }
  return candidates;
}

Completed Complete(const std::string& typed, const Candidates& candidates, const Room& room) {
  Candidates fitting;
  for (const auto& candidate : candidates) {
    if (candidate.value.starts_with(typed)) fitting.push_back(candidate);
  }
  if (fitting.empty()) return {};
  const std::string common = CommonBeginning(fitting);
  if (common.size() > typed.size()) return {.insert = common.substr(typed.size()), .list = ""};
  if (fitting.size() == 1) return {};
  for (auto& [value, description] : fitting) {
    value = workbench::Escaped(value.substr(ShownFrom(typed)));
    description = workbench::Escaped(description);
  }
  return {.insert = "", .list = Listed(fitting, room)};
}

}  // namespace cordboard::cli::shell
