// In what two exchanges differ.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "workbench/actions/Changes.h"
#include "workbench/plans/Export.h"
#include "workbench/plans/RecordTable.h"

namespace cordboard::workbench {

// The records, as changes that make the first exchange the second. The changes that it gives refer to it.
class RecordComparison {
 public:
  RecordComparison(Exchange& first, Exchange& second) : first_(first), second_(second) {}

  // Those of one command, ordered by their keys. Records of the same key are paired in their order.
  std::vector<RecordChange> ChangesOf(const FormDefinition& command);

 private:
  void Compare(const FormDefinition& form, std::vector<RecordChange>& changes);

  Exchange& first_;
  Exchange& second_;
  std::deque<WatchedTable> tables_;
};

// What besides records is different, a sentence each: releases and plants.
std::vector<std::string> OtherDifferences(Exchange& first, Exchange& second);

// A line that one of the exchanges gives and the other does not.
struct DifferentLine {
  std::string command;
  std::string text;
  bool inSecond = false;
};

// In the order in which the lines are generated; of each command those of the first exchange come first. Without
// commands the lines of all.
struct DifferentLines {
  std::vector<DifferentLine> lines = {};
  std::vector<std::pair<std::string, Problem>> problems = {};  // of the generation, by command
};
DifferentLines CompareLines(Exchange& first, Exchange& second, const std::vector<std::string>& commands);

// The plan that turns the first exchange into the second, which have the same release and plant. The first, a copy, is
// turned so by it.
ExportedPlan PlanInto(Exchange& first, Exchange& second);

}  // namespace cordboard::workbench
