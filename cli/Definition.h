// What the program and its subcommands are called with, as the command line was defined: for those who tell of it.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

namespace cordboard::cli {

struct ArgumentDefinition {
  std::vector<std::string> names;  // of an option "-o" and "--output", of any other argument "FILE"
  std::string value = {};          // what the value of an option is called: "OUTPUT"; nothing where it takes none
  std::string description = {};
  std::string otherwise = {};  // the value of an option that is not given, where it has one
  bool isOption = false;
  bool isRequired = false;
  bool takesSeveral = false;

  std::string Written() const;    // "-o, --output OUTPUT", "PLAN..."
  std::string Described() const;  // with whether it has to be given, and what it is otherwise
};

// The program, or a subcommand.
struct Definition {
  std::string name;      // "apply"
  std::string calledAs;  // "cordboard apply"
  std::string description;
  std::string footer;  // lines, the last one without its end
  std::vector<ArgumentDefinition> arguments = {};
  std::vector<Definition> subcommands = {};

  const Definition* Find(const std::string& subcommand) const;
  const ArgumentDefinition* FindOption(const std::string& option) const;
  std::string Synopsis() const;  // "cordboard apply [OPTIONS] FILE PLAN..."
};

std::string HelpText(const Definition& definition);
nlohmann::json ToJson(const Definition& definition);

}  // namespace cordboard::cli
