// Writing results and messages: data to standard output, messages to standard error; or with --json both to standard
// output, as one document.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "script/Value.h"
#include "workbench/actions/UserAction.h"

namespace cordboard::cli {

// From now on messages are gathered for the document, and nothing goes to standard error.
void GatherMessages();
// From now on they go to standard error: the document cannot be written.
void TellOnStandardError();

// From now on a problem is told with the technical cause of a failure behind it, and Debug tells what it is given.
void TellCauses();

// While it lives, an error or a warning without a place of its own is told with this one: "standard input:3".
class MessagesAt {
 public:
  explicit MessagesAt(std::string place);
  ~MessagesAt();
  MessagesAt(const MessagesAt&) = delete;
  MessagesAt& operator=(const MessagesAt&) = delete;

 private:
  std::string before_;
};

// A message: a line on standard error, its label in colour where that is a terminal that has them (TERM) and NO_COLOR
// is not set to anything; or a problem of the document. Control characters are shown escaped.
void Note(const std::string& label, const std::string& text);
void Error(const std::string& text);
void Warning(const std::string& text);

// Where a problem stands, as far as that is known.
struct Place {
  std::string command = {};
  std::string file = {};
  std::size_t line = 0;
};

// A problem as a message: "error: office.plan:2: KSEXI, DIR=100: this value is not possible here. Possible: 101, 102".
void Error(const Place& place, const workbench::Problem& problem);
void Warning(const Place& place, const workbench::Problem& problem);
void Note(const Place& place, const workbench::Problem& problem);
// Lines that the library traced, where causes are told.
void Debug(const std::vector<std::string>& lines);

// Prints the document of a subcommand, an object: its data, and under "problems" the messages that were gathered.
void PrintJson(nlohmann::json document);
// Ends the document of a subcommand that ended early: prints the problems, unless that was done.
void PrintProblemsLeft();

// A document of one list, which may be long: its elements are printed one after the other.
class JsonList {
 public:
  explicit JsonList(const std::string& name);
  void Add(const nlohmann::json& element);
  void End();
};

// Writes what was printed so far. Gives 0, or the error with which that failed the first time.
int FlushOutput();

nlohmann::json ToJson(const Value& value);

// A text of data as it is printed: on a terminal with its control characters escaped.
std::string Printed(const std::string& text);

// Columns under headings, each as wide as is said: that is, as its widest cell.
class Table {
 public:
  // Prints the headings.
  Table(const std::vector<std::string>& headings, std::vector<std::size_t> widths);
  void Print(const std::vector<std::string>& cells) const;

 private:
  std::vector<std::size_t> widths_;
};
// The same for rows that are all there.
void PrintTable(const std::vector<std::string>& headings, const std::vector<std::vector<std::string>>& rows);

}  // namespace cordboard::cli
