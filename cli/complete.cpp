// cordboard complete: what the last word of a command line may be completed to (cli/completion).

#include <algorithm>
#include <iostream>
#include <map>
#include <memory>
#include <utility>

#include "cli/Candidates.h"
#include "cli/Definition.h"
#include "cli/Files.h"
#include "cli/LineCandidates.h"
#include "cli/Subcommands.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"

namespace cordboard::cli {

namespace {

// A command line as far as it is typed, the way the definitions read it.
struct Typed {
  const Definition* definition;                                // of the program, or of the subcommand that is typed
  std::map<std::string, std::vector<std::string>> given = {};  // before the last word: what each argument is given
  const ArgumentDefinition* argument = nullptr;  // that the last word is the value of; none where that is not expected
  std::string word;

  std::string First(const std::string& name) const {
    const auto found = given.find(name);
    return found == given.end() ? "" : found->second.front();
  }
  const workbench::FormDefinition& Form() const { return FormOf(First("COMMAND")); }
};

// What the value of an argument is called: of an option "OUTPUT", of any other "FILE".
const std::string& Kind(const ArgumentDefinition& argument) {
  return argument.isOption ? argument.value : argument.names.front();
}

// The argument that is no option and takes the next word, after what is given.
const ArgumentDefinition* NextPlace(const Typed& typed) {
  const auto found = std::ranges::find_if(typed.definition->arguments, [&](const ArgumentDefinition& argument) {
    return !argument.isOption && (argument.takesSeveral || !typed.given.contains(Kind(argument)));
  });
  return found == typed.definition->arguments.end() ? nullptr : &*found;
}

Typed Read(const std::vector<std::string>& words, const Definition& program) {
  Typed typed{.definition = &program, .word = words.empty() ? "" : words.back()};
  const ArgumentDefinition* option = nullptr;  // that wants its value
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    const Definition* subcommand = typed.definition->Find(words[i]);
    if (option != nullptr) {
      typed.given[Kind(*std::exchange(option, nullptr))].push_back(words[i]);
    } else if (words[i].starts_with('-') && words[i].size() > 1) {
      const ArgumentDefinition* found = typed.definition->FindOption(words[i]);
      if (found != nullptr && !found->value.empty()) option = found;
    } else if (subcommand != nullptr) {
      typed.definition = subcommand;
    } else if (const ArgumentDefinition* place = NextPlace(typed)) {
      typed.given[Kind(*place)].push_back(words[i]);
    } else {
      throw Exit{Usage, words[i] + " is not expected"};
    }
  }
  typed.argument = option != nullptr ? option : NextPlace(typed);
  return typed;
}

Candidates Releases(const Typed&) {
  Candidates candidates;
  for (const std::string& release : workbench::Releases()) candidates.push_back({release, ""});
  return candidates;
}

Candidates Plants(const Typed&) {
  Candidates candidates;
  for (const std::string& name : workbench::PlantNames()) candidates.push_back({name, ""});
  return candidates;
}

Candidates Subcommands(const Definition& definition) {
  Candidates candidates;
  for (const Definition& sub : definition.subcommands) candidates.push_back({sub.name, sub.description});
  return candidates;
}

Candidates Options(const Definition& definition) {
  Candidates candidates;
  for (const ArgumentDefinition& argument : definition.arguments) {
    if (argument.isOption) candidates.push_back({argument.names.back(), argument.description});
  }
  return candidates;
}

LookUp InFile(const Typed& typed) {
  return {.exchange = [file = typed.First("FILE"),
                       open = std::shared_ptr<workbench::Exchange>()]() mutable -> workbench::Exchange& {
    if (!open) open = OpenToRead(file);
    return *open;
  }};
}

Candidates Assignments(const Typed& typed) {
  const auto given = typed.given.find("NAME=VALUE");
  const auto values = typed.definition->name == "show" ? StoredValues : FormValues;
  return values(InFile(typed), typed.Form(),
                AssignmentsOf(given == typed.given.end() ? std::vector<std::string>() : given->second), typed.word);
}

Candidates Nothing(const Typed&) { return {}; }

// What the kinds of values have to offer. Any other is the name of a file.
struct Offer {
  const char* kind;
  Candidates (*candidates)(const Typed& typed);
  bool isFileToo = false;
};
const Offer offers[] = {
    {"COMMAND", [](const Typed&) { return CommandNames(); }},
    {"KEEP", Nothing},
    {"LIMIT", Nothing},
    {"LINE", [](const Typed& typed) { return LineContinued(InFile(typed), typed.word); }},
    {"MESSAGE", Nothing},
    {"NAME=VALUE", Assignments},
    {"PARAM", [](const Typed& typed) { return ParameterNames(typed.Form()); }},
    {"PLANT", Plants, true},
    {"RELEASE", Releases},
    {"STATE", [](const Typed& typed) { return StateNumbers(InFile(typed)); }},
};

void Print(const Candidates& candidates, const std::string& word) {
  for (const auto& [value, description] : candidates) {
    if (value.starts_with(word)) std::cout << value << (description.empty() ? "" : "\t" + description) << '\n';
  }
}

void PrintAll(const Typed& typed, const Definition& program) {
  const bool isValue = typed.argument != nullptr && typed.argument->isOption;
  if (!isValue && typed.word.starts_with('-')) return Print(Options(*typed.definition), typed.word);
  if (!isValue) Print(Subcommands(*typed.definition), typed.word);
  if (typed.argument == nullptr) return;
  const std::string& kind = Kind(*typed.argument);
  if (typed.definition->name == "help" && kind == "COMMAND") Print(Subcommands(program), typed.word);
  const auto* offer = std::ranges::find(offers, kind, &Offer::kind);
  const bool isListed = offer != std::end(offers);
  if (!isListed || offer->isFileToo) std::cout << ":files\n";
  if (isListed) Print(offer->candidates(typed), typed.word);
}

}  // namespace

int Complete(const std::vector<std::string>& words, const Definition& program) {
  // Where the line that is typed makes no sense there is nothing to complete, and nothing to complain of yet.
  try {
    PrintAll(Read(words, program), program);
  } catch (...) {
    return Done;
  }
  return Done;
}

}  // namespace cordboard::cli
