// Adding records by lines of a plan that are tried: what a line has to tell is found out, and its records are looked
// at.
#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "workbench/plans/RecordLines.h"
#include "workbench/plans/Trial.h"

namespace cordboard::workbench {

class RecordAdds {
 public:
  // Lines that serve are put behind `kept`.
  RecordAdds(Session& session, Changes& changes, std::vector<TriedLine>& kept)
      : session_(session), changes_(changes), kept_(kept) {}

  // Adds the records of a run in one line, and changes the one of a run of one where it comes out with other values.
  // Gives why that cannot be done, or nothing.
  std::string Add(const RecordTable& table, std::span<const Record> run);
  // Adds a record anew. Gives whether that is done.
  bool Replace(const RecordTable& table, const Record& standing, const Record& now);
  // Adds records that differ in one column in one line, since another line would be refused, and changes what is
  // different besides. Those that stand are removed first. Gives whether that is done.
  bool AddAlike(const RecordTable& table, std::span<const Record> standing, std::span<const Record> records,
                std::size_t column);

 private:
  std::string AddTelling(const RecordTable& table, std::span<const Record> run, Columns told);
  std::vector<Problem> Try(const RecordTable& table, std::span<const Record> run, const Columns& told, Trial& trial);

  Session& session_;
  Changes& changes_;
  std::vector<TriedLine>& kept_;
  // The columns that did, for records that have these.
  std::map<const FormDefinition*, std::map<Columns, Columns>> learnt_;
};

// A problem as a comment tells it.
std::string Refusal(const Problem& problem);

}  // namespace cordboard::workbench
