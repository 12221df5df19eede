#include "workbench/exchange/FixedValues.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <vector>

#include "workbench/data/Resources.h"
#include "workbench/database/Connection.h"
#include "workbench/text/Elements.h"

namespace cordboard::workbench {

namespace {

using nlohmann::json;

// An entry without releases holds for all.
bool HoldsFor(const json& entry, const std::string& release) {
  const auto releases = entry.find("releases");
  return releases == entry.end() || std::find(releases->begin(), releases->end(), json(release)) != releases->end();
}

std::string Replaced(std::string text, const std::string& sign, const std::string& value) {
  const std::size_t at = text.find(sign);
  return at == text.npos ? text : text.replace(at, sign.size(), value);
}

// A value that is a range ("1&&16") stands for all of it, and % in its description for the single value.
void EnterList(Connection& database, const std::string& command, const std::string& parameter, int definition,
               const json& values) {
  for (const json& entry : values) {
    const std::string typed = entry.at(0);
    for (const std::string& value : HoldsRange(typed) ? Elements(typed) : std::vector<std::string>{typed})
      database.Run(
          "INSERT INTO [ParamValueDesc] ([Command], [Param], [Value], [ValDesc], [DefinitionNo]) VALUES (?, ?, ?, ?, "
          "?)",
          {command, parameter, value, Replaced(entry.at(1), "%", value), definition});
  }
}

// {"command": ..., "parameters": {NAME: [{"definition": 1, "releases": [...], "values": [[value, description], ...]}]}}
// Several commands share a file with "commands", several definitions a list with "definitions".
void EnterLists(Connection& database, const json& data, const std::string& release) {
  const std::vector<std::string> commands =
      data.contains("command") ? json::array({data.at("command")}) : data.at("commands");
  for (const auto& [parameter, lists] : data.at("parameters").items()) {
    for (const json& list : lists) {
      if (!HoldsFor(list, release)) continue;
      const std::vector<int> definitions = list.value("definitions", std::vector<int>{list.value("definition", 1)});
      for (const std::string& command : commands) {
        for (const int definition : definitions) EnterList(database, command, parameter, definition, list.at("values"));
      }
    }
  }
}

// {"table": ..., "columns": [...], "rows": [[...], ...]}: texts, numbers, truth values and nulls as they stand.
void EnterRows(Connection& database, const json& data) {
  std::string columns;
  std::string places;
  for (const json& column : data.at("columns")) {
    columns += (columns.empty() ? "[" : ", [") + column.get<std::string>() + "]";
    places += places.empty() ? "?" : ", ?";
  }
  const std::string insert =
      "INSERT INTO [" + data.at("table").get<std::string>() + "] (" + columns + ") VALUES (" + places + ")";
  for (const json& row : data.at("rows")) {
    std::vector<Value> values;
    for (const json& cell : row) {
      if (cell.is_null()) values.push_back(Value::Null());
      if (cell.is_boolean()) values.emplace_back(cell.get<bool>());
      if (cell.is_number()) values.emplace_back(cell.get<double>());
      if (cell.is_string()) values.emplace_back(cell.get<std::string>());
    }
    database.Run(insert, values);
  }
}

}  // namespace

void EnterFixedValues(Connection& database, const std::string& release) {
  database.Start();
  for (const std::string_view path : ResourcesIn("values/")) {
    const json data = json::parse(Resource(path));
    if (data.contains("table")) {
      EnterRows(database, data);
    } else {
      EnterLists(database, data, release);
    }
  }
  database.Commit();
}

}  // namespace cordboard::workbench
