#include "workbench/host/HidingTrace.h"

#include <algorithm>
#include <cctype>
#include <span>
#include <string_view>
#include <type_traits>

#include "script/Conversions.h"

namespace cordboard::workbench {

namespace {

// What is blank tells nothing, and whether an operation was refused is told.
Value Hidden(const Value& value) { return value.IsBlank() || value.IsTruth() ? value : Value(hiddenValue); }

List Hidden(const List& list) {
  if (list.IsEmpty() || list.IsNull()) return list;
  List hidden = list;
  for (std::size_t i = 0; i < list.size(); ++i) hidden[i] = Hidden(list[i]);
  return hidden;
}

struct Hide {
  template <typename Content>
  void operator()(Content& content) const {
    if constexpr (std::is_same_v<Content, Value> || std::is_same_v<Content, List>) content = Hidden(content);
  }
};

bool IsOfAName(char c) { return c == '_' || std::isalnum(static_cast<unsigned char>(c)) != 0; }

// Where the name stands as a word of its own, from a place on.
std::size_t FindWord(std::string_view text, std::string_view name, std::size_t from) {
  for (std::size_t at = text.find(name, from); at != text.npos; at = text.find(name, at + 1)) {
    const std::size_t end = at + name.size();
    if ((at == 0 || !IsOfAName(text[at - 1])) && (end == text.size() || !IsOfAName(text[end]))) return at;
  }
  return text.npos;
}

// Where the content behind "NAME =" begins, from a place on.
std::size_t FindContent(std::string_view text, std::string_view name, std::size_t from) {
  for (std::size_t at = FindWord(text, name, from); at != text.npos; at = FindWord(text, name, at + 1)) {
    const std::size_t equals = text.find_first_not_of(" ]", at + name.size());
    if (equals == text.npos || text[equals] != '=') continue;
    return std::min(text.find_first_not_of(' ', equals + 1), text.size());
  }
  return text.npos;
}

// What stands between SELECT and FROM.
std::string_view SelectList(std::string_view sql) {
  const std::size_t begin = FindWord(sql, "SELECT", 0);
  const std::size_t end = FindWord(sql, "FROM", 0);
  return begin == sql.npos || end == sql.npos || end < begin ? "" : sql.substr(begin, end - begin);
}

RowSet WithHidden(const RowSet& rows, const std::vector<bool>& secret) {
  std::vector<std::vector<Value>> columns;
  for (std::size_t column = 0; column < rows.ColumnCount(); ++column) {
    const List shown = column < secret.size() && secret[column] ? Hidden(rows[column]) : rows[column];
    columns.emplace_back(shown.begin(), shown.end());
  }
  return RowSet(columns);
}

}  // namespace

HidingTrace::HidingTrace(std::shared_ptr<Host> next, const FormDefinition& form) : TracingHost(std::move(next)) {
  for (const ParameterDefinition& parameter : form.parameters) {
    if (!parameter.secret) continue;
    secrets_.push_back(parameter.name);
    compared_ = compared_ || parameter.check;
  }
}

bool HidingTrace::IsSecret(const Argument& name) const {
  const auto* value = std::get_if<Value>(&name);
  return value != nullptr && value->IsText() && std::ranges::find(secrets_, value->text()) != secrets_.end();
}

HostCall HidingTrace::Shown(HostCall call) const {
  std::vector<Argument>& arguments = call.arguments;
  if (arguments.empty()) return call;
  const bool isPushed = call.operation == "scPushValidValues" && arguments.size() > 1 && IsSecret(arguments[1]);
  const bool isCompared = call.operation == "scIsValueEqual" && compared_;
  if (IsSecret(arguments[0])) {
    for (Argument& argument : std::span(arguments).subspan(1)) std::visit(Hide(), argument);
  } else if (isPushed || isCompared) {
    std::visit(Hide(), arguments[0]);
  } else if (call.operation == "scSQLInsert") {
    HideInColumns(call, 1);
  } else if (call.operation == "scSQLSelect") {
    HideInColumns(call, 2);
  } else if (call.operation == "scSQLUpdate") {
    HideInColumns(call, 1);
    HideInColumns(call, 3);
  } else if (const auto* text = std::get_if<Value>(&arguments[0]); text != nullptr && text->IsText()) {
    arguments[0] =
        Value(call.operation == "scPrintToDebugWindow" ? HiddenInLine(text->text()) : HiddenInStatement(text->text()));
  }
  return call;
}

HostAnswer HidingTrace::Shown(HostAnswer answer, const HostCall& call) const {
  const bool named = !call.arguments.empty() && IsSecret(call.arguments[0]);
  if (named || (call.operation == "scGetPreviousValue" && compared_)) {
    std::visit(Hide(), answer.result);
    std::visit(Hide(), answer.out);
  }
  if (call.operation == "scIsValueEqual" && compared_) answer.result = Value(hiddenValue);
  for (Answered* answered : {&answer.result, &answer.out}) {
    if (const auto* rows = std::get_if<RowSet>(answered)) *answered = WithHidden(*rows, SecretColumns(call));
  }
  return answer;
}

// The values of the columns stand in the argument behind theirs.
void HidingTrace::HideInColumns(HostCall& call, std::size_t columns) const {
  const auto* names = std::get_if<List>(&call.arguments[columns]);
  auto* values = std::get_if<List>(&call.arguments[columns + 1]);
  if (names == nullptr || names->IsEmpty() || values == nullptr || values->IsEmpty()) return;
  for (std::size_t i = 0; i < std::min(names->size(), values->size()); ++i) {
    if (IsSecret((*names)[i])) (*values)[i] = Hidden((*values)[i]);
  }
}

std::string HidingTrace::HiddenInStatement(std::string sql) const {
  for (const std::string& name : secrets_) {
    for (std::size_t at = 0; (at = FindContent(sql, name, at)) != sql.npos;) {
      if (at == sql.size() || sql[at] != '\'') continue;
      const std::size_t end = std::min(sql.find('\'', at + 1), sql.size());
      if (end > at + 1) sql.replace(at + 1, end - at - 1, hiddenValue);
    }
  }
  return sql;
}

std::string HidingTrace::HiddenInLine(std::string line) const {
  for (const std::string& name : secrets_) {
    const std::size_t at = FindContent(line, name, 0);
    if (at < line.size()) line.replace(at, line.npos, hiddenValue);
  }
  return line;
}

std::vector<bool> HidingTrace::SecretColumns(const HostCall& call) const {
  std::vector<bool> secret;
  if (call.operation == "scSQLSelect") {
    for (const Value& name : std::get<List>(call.arguments[1])) secret.push_back(IsSecret(name));
  } else if (call.operation == "scRunQuery") {
    const std::string sql = Joined(std::get<Value>(call.arguments[0]));
    std::string_view columns = SelectList(sql);
    for (std::size_t comma = 0; comma != columns.npos;) {
      comma = columns.find(',');
      const std::string_view column = columns.substr(0, comma);
      secret.push_back(std::ranges::any_of(
          secrets_, [column](const std::string& name) { return FindWord(column, name, 0) != column.npos; }));
      if (comma != columns.npos) columns.remove_prefix(comma + 1);
    }
  }
  return secret;
}

}  // namespace cordboard::workbench
