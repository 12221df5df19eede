// In which tables two exchanges differ, whatever the tables hold: records, marks of use, the plant.
#pragma once

#include <string>
#include <vector>

namespace cordboard::workbench {

class Exchange;

struct TableDifference {
  std::string table;
  std::size_t rows = 0;  // that only one of the two has; a row that is different in each counts as one
};

// All tables but those with generated lines. The identifiers of records, and the order of rows, are no difference. An
// empty text where the other has nothing is one: lines of the exchange can tell the two apart.
std::vector<TableDifference> DifferentTables(Exchange& one, Exchange& other);

}  // namespace cordboard::workbench
