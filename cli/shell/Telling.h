// What a shell tells of lines that it has performed.
#pragma once

#include <string>

#include "cli/shell/Entry.h"
#include "workbench/plans/Plan.h"

namespace cordboard::cli::shell {

// What the lines of an entry are told with: on a terminal marks under what was typed, elsewhere the place in what is
// read. What a line did has to be asked while it is done, and is told when it is kept.
class Teller {
 public:
  Teller(const Entry& entry, const std::string& source) : entry_(entry), source_(source) {}

  void Take(workbench::LineReport report);
  void Tell(workbench::PlanResult result);

 private:
  void Place(workbench::LineReport& report) const;
  void Mark(const workbench::LineReport& report) const;

  const Entry& entry_;
  const std::string& source_;
  std::string changes_;
};

// A text of one or more lines in a message, as far as it may be told: "KSEXI:DIR=100;", "3 lines".
std::string Named(const std::string& text);

// Its lines that are actions.
std::size_t CountLines(const std::string& text);

}  // namespace cordboard::cli::shell
