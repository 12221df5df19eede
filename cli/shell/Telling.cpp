#include "cli/shell/Telling.h"

#include <iostream>
#include <sstream>

#include "cli/Output.h"
#include "cli/PlanReport.h"
#include "cli/shell/Marks.h"
#include "script/Text.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/text/Counted.h"

namespace cordboard::cli::shell {

namespace {

using workbench::LineReport;

std::string LineOf(const std::string& text, std::size_t number) {
  std::istringstream lines(text);
  std::string line;
  for (std::size_t i = 0; i < number; ++i) std::getline(lines, line);
  return line;
}

}  // namespace

void Teller::Take(LineReport report) {
  Place(report);
  changes_ += ChangesInWords(report);
}

void Teller::Tell(workbench::PlanResult result) {
  if (result.kept) std::cout << changes_;
  FlushOutput();
  for (LineReport& report : result.reports) {
    if (report.refused) Mark(report);
    Place(report);
  }
  TellProblems(result);
}

void Teller::Place(LineReport& report) const {
  const bool isPlaced = entry_.columns == 0 && entry_.row > 0;
  report.file = isPlaced ? source_ : "";
  report.line = isPlaced ? report.line + entry_.row - 1 : 0;
}

// The row that was typed stands right above, if all of it fits on one. Otherwise a piece of the line is shown, unless
// it may be a secret.
void Teller::Mark(const LineReport& report) const {
  const std::string line = LineOf(entry_.text, report.line);
  const auto places = PlacesOf(line, report.problems);
  if (places.empty() || entry_.columns == 0) return;
  if (entry_.isOneRow && entry_.prompt + Length(line) < entry_.columns) {
    std::cerr << MarksUnder(entry_.prompt, places) << '\n';
  } else if (MayBeTold(line)) {
    std::cerr << Excerpt(line, places.front(), entry_.columns) << '\n';
  }
}

std::size_t CountLines(const std::string& text) {
  std::istringstream lines(text);
  std::size_t count = 0;
  for (std::string line; std::getline(lines, line);) count += workbench::ReadableLine(line) ? 1 : 0;
  return count;
}

std::string Named(const std::string& text) {
  const std::size_t lines = CountLines(text);
  return lines == 1 && MayBeTold(text) ? text : workbench::Counted(lines, "line");
}

}  // namespace cordboard::cli::shell
