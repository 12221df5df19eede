#include "workbench/exchange/FixedValues.h"

#include <algorithm>
#include <map>

#include "workbench/data/DataFile.h"
#include "workbench/data/Resources.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/text/Elements.h"

namespace cordboard::workbench {

namespace {

using Texts = std::vector<std::string>;

// The description of one value of a range.
std::string Described(const std::string& description, const std::string& value) {
  const std::size_t at = description.find('%');
  if (at == description.npos) return description;
  const std::size_t digits = std::min(value.find_first_not_of('0'), value.size() - 1);
  return std::string(description).replace(at, 1, value.substr(digits));
}

std::vector<std::pair<std::string, std::string>> ReadEntries(const DataItem& item) {
  std::vector<std::pair<std::string, std::string>> entries;
  for (const auto& [typed, text] : item.Entries()) {
    const std::string description = text.Text();
    if (typed.empty()) text.Fail("a value is not blank");
    if (!HoldsRange(typed)) {
      entries.emplace_back(typed, description);
      continue;
    }
    try {
      for (const std::string& value : Elements(typed)) entries.emplace_back(value, Described(description, value));
    } catch (const ElementsError& error) {
      text.Fail(error.what());
    }
  }
  return entries;
}

Texts ReadReleases(Fields& list) {
  const auto item = list.Find("releases");
  if (!item) return Releases();
  for (const DataItem& release : item->List()) {
    if (std::ranges::find(Releases(), release.Text()) == Releases().end())
      release.Fail("there is no release " + release.Text());
  }
  return item->As<Texts>();
}

FixedTable ReadTable(Fields& file) {
  FixedTable table{.name = file.Get<std::string>("table"), .columns = file.Get<Texts>("columns"), .rows = {}};
  for (const DataItem& item : file.At("rows").List()) {
    std::vector<Value>& row = table.rows.emplace_back();
    for (const DataItem& cell : item.List()) row.push_back(cell.Cell());
    if (row.size() != table.columns.size())
      item.Fail("the row has " + std::to_string(row.size()) + " cells, and there are " +
                std::to_string(table.columns.size()) + " columns");
  }
  return table;
}

}  // namespace

void ReadFixedValues(const DataItem& file, FixedValues& values) {
  file.Object([&](Fields& fields) {
    if (fields.Has("table")) {
      values.tables.push_back(ReadTable(fields));
      return;
    }
    const auto commands = fields.Get<Texts>("commands");
    for (const DataItem& item : fields.At("lists").List()) {
      values.lists.push_back(item.Object([&](Fields& list) {
        return FixedList{.commands = commands,
                         .parameters = list.Get<Texts>("parameters"),
                         .releases = ReadReleases(list),
                         .definitions = list.Get("definitions", std::vector<int>{1}),
                         .values = ReadEntries(list.At("values"))};
      }));
    }
  });
}

namespace {

const FixedValues& ValuesIn(std::string_view path) {
  static std::map<std::string_view, FixedValues> read;
  if (const auto found = read.find(path); found != read.end()) return found->second;
  FixedValues values;
  ReadFixedValues(ReadResource(path), values);
  return read.emplace(path, std::move(values)).first->second;
}

// The files with lists, by the commands whose lists they hold.
const std::map<std::string, std::vector<std::string_view>>& FilesByCommand() {
  static const auto files = [] {
    std::map<std::string, std::vector<std::string_view>> byCommand;
    for (const std::string_view path : ResourcesIn("values/")) {
      const DataItem file = ReadResource(path);
      const auto commands = Fields(file).Find("commands");
      if (!commands) continue;
      for (const std::string& command : commands->As<Texts>()) byCommand[command].push_back(path);
    }
    return byCommand;
  }();
  return files;
}

}  // namespace

const FixedValues& AllFixedValues() {
  static const FixedValues all = [] {
    FixedValues values;
    for (const std::string_view path : ResourcesIn("values/")) {
      const FixedValues& one = ValuesIn(path);
      values.lists.insert(values.lists.end(), one.lists.begin(), one.lists.end());
      values.tables.insert(values.tables.end(), one.tables.begin(), one.tables.end());
    }
    return values;
  }();
  return all;
}

const std::vector<const FixedList*>& FixedListsOf(const std::string& command) {
  static std::map<std::string, std::vector<const FixedList*>> read;
  if (const auto found = read.find(command); found != read.end()) return found->second;
  std::vector<const FixedList*> lists;
  if (const auto files = FilesByCommand().find(command); files != FilesByCommand().end()) {
    for (const std::string_view path : files->second) {
      for (const FixedList& list : ValuesIn(path).lists) lists.push_back(&list);
    }
  }
  return read.emplace(command, std::move(lists)).first->second;
}

const std::set<std::string>& FixedParametersOf(const std::string& command) {
  static std::map<std::string, std::set<std::string>> read;
  if (const auto found = read.find(command); found != read.end()) return found->second;
  std::set<std::string> parameters;
  if (const auto files = FilesByCommand().find(command); files != FilesByCommand().end()) {
    for (const std::string_view path : files->second) {
      const DataItem file = ReadResource(path);
      for (const DataItem& list : Fields(file).At("lists").List()) {
        for (const DataItem& parameter : Fields(list).At("parameters").List()) parameters.insert(parameter.Text());
      }
    }
  }
  return read.emplace(command, std::move(parameters)).first->second;
}

}  // namespace cordboard::workbench
