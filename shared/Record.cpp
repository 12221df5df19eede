#include "shared/Record.h"

#include <algorithm>

#include "script/Conversions.h"
#include "script/HostOperations.h"

namespace cordboard {

List Record(const List& columns, std::initializer_list<GivenValue> given) {
  List record(std::vector<Value>{});
  for (const Value& column : columns) {
    const std::string name = ToText(column);
    const auto* found = std::ranges::find(given, name, &GivenValue::column);
    record.Append(found != given.end() ? found->Get() : name == "CMDID" ? scBuildCmdID() : scGetParamValue(name));
  }
  return record;
}

Value ValueOf(std::string_view column, const List& columns, const List& record) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (ToText(columns[i]) == column) return record[i];
  }
  return Value();
}

}  // namespace cordboard
