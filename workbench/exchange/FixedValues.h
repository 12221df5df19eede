// The fixed values of all releases: lists of values (ParamValueDesc) and the other static tables (data/values/).
//
// A file holds lists that its commands and parameters share:
//   {"commands": ["KSEXI", "KSANI"],
//    "lists": [{"parameters": ["ADC_D4", "ADC_D5"], "values": {"0": "Ring", "1": "Go to an operator"}},
//              {"parameters": ["ADC_D11"], "releases": ["R7", "R8"], "definitions": [1], "values": {...}}]}
// A list without releases holds for all of them, and one without definitions for definition 1. A parameter's lists of
// the same release and definition follow one another. A value that is a range, "01&&16", stands for all of it, and % in
// its description for the single value, without zeros in front.
//
// Or it holds the rows of a table: {"table": "PARNUMVAL", "columns": [...], "rows": [[...], ...]}
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "script/Value.h"

namespace cordboard::workbench {

class DataItem;

// Values with their descriptions, in order.
using DescribedValues = std::vector<std::pair<std::string, std::string>>;

struct FixedList {
  std::vector<std::string> commands;
  std::vector<std::string> parameters;
  std::vector<std::string> releases;
  std::vector<int> definitions;
  DescribedValues values;
};

struct FixedTable {
  std::string name;
  std::vector<std::string> columns;
  std::vector<std::vector<Value>> rows;
};

struct FixedValues {
  std::vector<FixedList> lists;
  std::vector<FixedTable> tables;
};

// Adds what one file holds. Fails with a DataError.
void ReadFixedValues(const DataItem& file, FixedValues& values);
// What the program carries.
const FixedValues& AllFixedValues();
// Of that, the lists of one command. Only the files are read in which its name stands.
const std::vector<const FixedList*>& FixedListsOf(const std::string& command);
// The parameters of these lists, whose values need not be read for that.
const std::set<std::string>& FixedParametersOf(const std::string& command);

}  // namespace cordboard::workbench
