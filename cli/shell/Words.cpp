#include "cli/shell/Words.h"

#include <algorithm>
#include <iostream>
#include <optional>

#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/forms/FormDefinition.h"
#include "workbench/text/Escaped.h"
#include "workbench/text/Nearest.h"
#include "workbench/text/Quoted.h"
#include "workbench/text/Separated.h"

namespace cordboard::cli::shell {

namespace {

std::string At(const Arguments& given, std::size_t place) { return place < given.size() ? given[place] : ""; }

Arguments From(const Arguments& given, std::size_t place) {
  return {given.begin() + static_cast<std::ptrdiff_t>(std::min(place, given.size())), given.end()};
}

// As the subcommand has it, which the history speaks of.
const char* const withLaterOnes = "--with-later";

std::optional<int> StateNumber(const Arguments& given) {
  if (given.empty()) return std::nullopt;
  const std::string& text = given.front();
  if (text.size() > 9 || text.find_first_not_of("0123456789") != text.npos)
    throw Exit{Usage, text + " is not the number of a state; see history"};
  return std::stoi(text);
}

int RunTry(Setting& setting, const Arguments& given) {
  if (given.empty()) return setting.work.Try();
  if (given.front() != "again") throw Exit{Usage, "behind try may stand \"again\" alone"};
  return setting.work.TryAgain();
}

int RunKeep(Setting& setting, const Arguments& given) {
  const std::string message = workbench::Separated(given, " ");
  if (workbench::Escaped(message) != message) throw Exit{Usage, "the message is not one line of text"};
  return setting.work.Keep(message);
}

int RunUndo(Setting& setting, const Arguments& given) {
  const bool withLater = !given.empty() && given.back() == withLaterOnes;
  return setting.work.Undo(StateNumber({given.begin(), given.end() - (withLater ? 1 : 0)}), withLater);
}

int RunShow(Setting& setting, const Arguments& given) {
  return Show(Work::Look(setting.work),
              {.file = setting.work.fileName(), .command = At(given, 0), .selection = From(given, 1)});
}

int RunValues(Setting& setting, const Arguments& given) {
  return Values(
      Work::Look(setting.work),
      {.file = setting.work.fileName(), .command = given[0], .parameter = given[1], .given = From(given, 2), .of = {}});
}

int RunUsed(Setting& setting, const Arguments& given) {
  return Used(Work::Look(setting.work), {.file = setting.work.fileName(), .value = given[0], .thing = At(given, 1)});
}

int RunGenerate(Setting& setting, const Arguments& given) {
  return Generate(Work::Look(setting.work), {.file = setting.work.fileName(), .commands = given, .output = {}});
}

int RunHistory(Setting& setting, const Arguments& given) {
  return ShowHistory(Work::Look(setting.work),
                     {.file = setting.work.fileName(), .state = StateNumber(given), .keep = std::nullopt});
}

int RunHelp(Setting& setting, const Arguments& given) {
  if (given.empty()) {
    std::cout << "A line of a plan is performed at once: KSEXI:DIR=100,ITYPE=12,EQU=next,CAT=1; (help plans).\n"
                 "Other words:\n\n";
    std::vector<std::vector<std::string>> rows;
    for (const Word& word : Words()) rows.push_back({word.Written(), word.help});
    PrintTable({"WORD", ""}, rows);
    return Done;
  }
  const Word* word = given.size() == 1 ? FindWord(given.front()) : nullptr;
  if (word == nullptr) return Help({.name = given[0], .parameter = At(given, 1), .pages = {}}, setting.program);
  std::cout << word->Written() << "\n    " << word->help << '\n';
  return Done;
}

int RunQuit(Setting& setting, const Arguments&) {
  setting.quits = true;
  return Done;
}

const Word words[] = {
    {"try", "[again]", "begin a trial: lines are performed on a copy; again: its lines once more, on the file as it is",
     RunTry},
    {"keep", "[MESSAGE...]", "end the trial and perform its lines on the file, as one change", RunKeep},
    {"drop", "", "end the trial and keep nothing of it",
     [](Setting& setting, const Arguments&) { return setting.work.Drop(); }},
    {"undo", "[STATE] [--with-later]", "take back the last change or that of a state; in a trial its last line",
     RunUndo},
    {"redo", "", "bring again what the last undo has taken back",
     [](Setting& setting, const Arguments&) { return setting.work.Redo(); }},
    {"history", "[STATE]", "list the states of the exchange, or show what one of them changed", RunHistory},
    {"show", "[COMMAND] [SELECTION...]", "show the tables, or records: show KSEXI CAT=1", RunShow},
    {"values", "COMMAND PARAM [NAME=VALUE...]", "list the values that are valid now: values KSEXI EQU ITYPE=12",
     RunValues},
    {"used", "VALUE [THING]", "show what refers to a number, a position or another thing", RunUsed},
    {"generate", "[COMMAND...]", "print the exchange's command lines, passwords among them", RunGenerate},
    {"help", "[NAME] [PARAM]", "show these words, or what a command, its parameter or a guide is: help KSEXI EQU",
     RunHelp},
    {"commands", "", "list the commands of the exchange", [](Setting&, const Arguments&) { return Commands({}); }},
    {"save", "FILE", "write the lines that were kept here, or those of the trial, as a plan",
     [](Setting& setting, const Arguments& given) { return setting.work.Save(given[0]); }},
    {"read", "FILE", "perform the lines of a plan: all of them, or none",
     [](Setting& setting, const Arguments& given) { return setting.work.Read(given[0]); }},
    {"quit", "", "end the shell, as Ctrl-D does", RunQuit},
};

[[noreturn]] void FailUnknown(const std::string& name) {
  constexpr std::size_t longest = 64;
  if (name.size() > longest) throw Exit{Usage, "there is no such word"};
  std::vector<std::string> names = {"edit", "delete"};
  for (const Word& word : words) names.emplace_back(word.name);
  for (const workbench::FormDefinition* form : workbench::Forms()) names.push_back(form->command);
  throw Exit{Usage, "there is no word " + name + "." + workbench::DidYouMean(name, names)};
}

}  // namespace

std::string Word::Written() const { return *takes == '\0' ? name : std::string(name) + " " + takes; }

std::string Word::Kinds::At(std::size_t place) const {
  if (place < names.size()) return names[place];
  return several ? names.back() : "";
}

Word::Kinds Word::ArgumentKinds() const {
  Kinds kinds;
  for (std::string kind : Split(takes)) {
    const bool isOptional = kind.front() == '[';
    if (isOptional) kind = kind.substr(1, kind.size() - 2);
    kinds.several = kind.ends_with("...");
    if (kinds.several) kind.resize(kind.size() - 3);
    kinds.names.push_back(kind);
    if (!isOptional) ++kinds.least;
  }
  return kinds;
}

std::span<const Word> Words() { return words; }

const Word* FindWord(std::string_view name) {
  const auto* found = std::ranges::find(words, name, &Word::name);
  return found == std::end(words) ? nullptr : found;
}

Arguments Split(std::string_view text) {
  Arguments arguments;
  bool isOpen = false;  // an argument has begun
  while (!text.empty()) {
    if (text.front() == '"') {
      if (!isOpen) arguments.emplace_back();
      isOpen = true;
      const auto quoted = workbench::TakeQuoted(text);
      arguments.back() += quoted ? *quoted : text.substr(1);
      if (!quoted) return arguments;
      continue;
    }
    const bool isBlank = text.front() == ' ' || text.front() == '\t';
    if (!isBlank && !isOpen) arguments.emplace_back();
    if (!isBlank) arguments.back() += text.front();
    isOpen = !isBlank;
    text.remove_prefix(1);
  }
  return arguments;
}

int RunWord(Setting& setting, const std::string& text) {
  // Who types lines all day ends a word as he ends a line.
  const std::size_t last = text.find_last_not_of(" \t\r");
  const Arguments typed = Split(std::string_view(text).substr(0, text[last] == ';' && last > 0 ? last : last + 1));
  const Word* word = FindWord(typed.front());
  // A command in small letters is taken for a word as well.
  if (word == nullptr) FailUnknown(typed.front().substr(0, typed.front().find(':')));
  const Arguments given = From(typed, 1);
  const Word::Kinds kinds = word->ArgumentKinds();
  if (given.size() < kinds.least || (!kinds.several && given.size() > kinds.names.size()))
    throw Exit{Usage, "it is typed so: " + word->Written()};
  return word->run(setting, given);
}

}  // namespace cordboard::cli::shell
