#include "workbench/FixedValues.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <vector>

#include "workbench/Connection.h"
#include "workbench/Resources.h"

namespace cordboard::workbench {

namespace {

using nlohmann::json;

// An entry without releases holds for all.
bool HoldsFor(const json& entry, const std::string& release) {
  const auto releases = entry.find("releases");
  return releases == entry.end() || std::find(releases->begin(), releases->end(), json(release)) != releases->end();
}

// {"command": ..., "parameters": {NAME: [{"definition": 1, "releases": [...], "values": [[value, description], ...]}]}}
void EnterLists(Connection& database, const json& data, const std::string& release) {
  for (const auto& [parameter, lists] : data.at("parameters").items()) {
    for (const json& list : lists) {
      if (!HoldsFor(list, release)) continue;
      for (const json& entry : list.at("values"))
        database.Run(
            "INSERT INTO [ParamValueDesc] ([Command], [Param], [Value], [ValDesc], [DefinitionNo]) VALUES (?, ?, ?, ?, "
            "?)",
            {data.at("command").get<std::string>(), parameter, entry.at(0).get<std::string>(),
             entry.at(1).get<std::string>(), list.value("definition", 1)});
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
