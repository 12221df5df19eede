#include "remote/Json.h"

#include <cmath>
#include <cstdint>
#include <vector>

#include "remote/RequestError.h"
#include "script/RunTimeFailure.h"

namespace cordboard::remote {

namespace {

using Cause = RunTimeFailure::Cause;

const Message emptyMessage = {{"empty", true}};
const Json emptyJson = {{"empty", true}};

Message NumberToJson(double number) {
  if (!std::isfinite(number)) throw RunTimeFailure(Cause::Overflow, "a number that is not finite has no JSON");
  const bool whole = number == std::trunc(number) && std::abs(number) < 0x1p63;
  return whole ? Message(static_cast<std::int64_t>(number)) : Message(number);
}

std::vector<Value> ToValues(const Json& array) {
  std::vector<Value> values;
  values.reserve(array.size());
  for (const Json& element : array) values.push_back(ToValue(element));
  return values;
}

}  // namespace

Json Parse(const std::string& line) {
  // The parser would take a zero byte for the end of the line.
  if (line.find('\0') != line.npos) throw RequestError(ErrorCode::NotJson, "a zero byte is in the line");
  try {
    return Json::parse(line, [](int depth, Json::parse_event_t, const Json&) {
      if (depth > MaximumDepth) throw RequestError(ErrorCode::NotJson, "the line is nested too deeply");
      return true;
    });
  } catch (const Json::parse_error& error) {
    throw RequestError(ErrorCode::NotJson, "the line is not JSON, at byte " + std::to_string(error.byte));
  } catch (const Json::out_of_range&) {
    throw RequestError(ErrorCode::NotJson, "a number in the line is too large");
  }
}

std::string Line(const Message& message) { return message.dump(-1, ' ', false, Message::error_handler_t::replace); }

Message ToJson(const Value& value) {
  switch (value.kind()) {
    case Value::Kind::Empty: return emptyMessage;
    case Value::Kind::Null: return nullptr;
    case Value::Kind::Text: return value.text();
    case Value::Kind::Number: return NumberToJson(value.number());
    case Value::Kind::Truth: return value.truth();
  }
  return emptyMessage;
}

Message ToJson(const List& list) {
  if (list.IsEmpty()) return emptyMessage;
  if (list.IsNull()) return nullptr;
  Message array = Message::array();
  for (const Value& value : list) array.push_back(ToJson(value));
  return array;
}

Value ToValue(const Json& json) {
  switch (json.type()) {
    case Json::value_t::null: return Value::Null();
    case Json::value_t::string: return json.get_ref<const std::string&>();
    case Json::value_t::boolean: return json.get<bool>();
    case Json::value_t::number_integer:
    case Json::value_t::number_unsigned:
    case Json::value_t::number_float: return json.get<double>();
    default: break;
  }
  if (json == emptyJson) return {};
  throw RunTimeFailure(Cause::TypeMismatch, "the peer gave no value where one is due");
}

List ToList(const Json& json) {
  if (json == emptyJson) return {};
  if (json.is_null()) return List::Null();
  if (!json.is_array()) throw RunTimeFailure(Cause::TypeMismatch, "the peer gave no list where one is due");
  return List(ToValues(json));
}

RowSet ToRowSet(const Json& json) {
  if (json == emptyJson) return {};
  std::vector<std::vector<Value>> columns;
  const auto refuse = [] { throw RunTimeFailure(Cause::TypeMismatch, "the peer gave no row set where one is due"); };
  if (!json.is_array()) refuse();
  for (const Json& column : json) {
    if (!column.is_array()) refuse();
    columns.push_back(ToValues(column));
  }
  return RowSet(std::move(columns));
}

}  // namespace cordboard::remote
