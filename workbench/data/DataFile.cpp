#include "workbench/data/DataFile.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <set>

#include "workbench/data/Resources.h"
#include "workbench/text/Nearest.h"
#include "workbench/text/Utf8.h"

namespace cordboard::workbench {

namespace {

using Json = nlohmann::ordered_json;

// The kind of a value as an error names it.
std::string Kind(const Json& json) {
  switch (json.type()) {
    case Json::value_t::null: return "null";
    case Json::value_t::boolean: return "a truth value";
    case Json::value_t::string: return "a text";
    case Json::value_t::array: return "a list";
    case Json::value_t::object: return "an object";
    default: return "a number";
  }
}

// The library's own words, without its mark in front: "parse error at line 1, column 2: ...".
std::string Complaint(const Json::exception& error) {
  const std::string text = error.what();
  const std::size_t mark = text.find("] ");
  return mark == text.npos ? text : text.substr(mark + 2);
}

// A list counts its objects from 0 and names those that have a name.
std::string Step(std::size_t index, const Json& json) {
  const std::string step = "[" + std::to_string(index) + "]";
  const bool named = json.is_object() && json.contains("name") && json["name"].is_string();
  return named ? step + " (" + json["name"].get<std::string>() + ")" : step;
}

// How the wanted value is reached, "parameters[3].title"; nothing where it does not stand in this one.
std::optional<std::string> PlaceIn(const Json& json, const Json& wanted) {
  if (&json == &wanted) return "";
  std::size_t index = 0;
  for (const auto& [key, value] : json.items()) {
    const auto rest = value.is_structured() || &value == &wanted ? PlaceIn(value, wanted) : std::nullopt;
    const std::string step = json.is_array() ? Step(index++, value) : key.empty() ? "\"\"" : key;
    if (rest) return step + (rest->empty() || rest->front() == '[' ? "" : ".") + *rest;
  }
  return std::nullopt;
}

}  // namespace

struct DataItem::File {
  std::string name;
  Json json;
};

void DataItem::Fail(const std::string& complaint) const {
  const std::string place = *PlaceIn(file_->json, *json_);
  throw DataError(file_->name, (place.empty() ? "" : place + ": ") + complaint);
}

void DataItem::FailAs(const char* wanted) const { Fail(std::string(wanted) + " is wanted, not " + Kind(*json_)); }

std::string DataItem::Text() const {
  if (!json_->is_string()) FailAs("a text");
  return json_->get<std::string>();
}

bool DataItem::Truth() const {
  if (!json_->is_boolean()) FailAs("a truth value");
  return json_->get<bool>();
}

int DataItem::Whole() const {
  if (!json_->is_number()) FailAs("a whole number");
  const double number = json_->get<double>();
  if (!json_->is_number_integer() || number < std::numeric_limits<int>::min() ||
      number > std::numeric_limits<int>::max())
    Fail("a whole number is wanted, not " + json_->dump());
  return json_->get<int>();
}

Value DataItem::Cell() const {
  if (json_->is_null()) return Value::Null();
  if (json_->is_boolean()) return json_->get<bool>();
  if (json_->is_number()) return json_->get<double>();
  return Text();
}

std::vector<DataItem> DataItem::List() const {
  if (!json_->is_array()) FailAs("a list");
  std::vector<DataItem> items;
  for (const Json& json : *json_) items.push_back(DataItem(file_, json));
  return items;
}

std::vector<std::pair<std::string, DataItem>> DataItem::Entries() const {
  if (!json_->is_object()) FailAs("an object");
  std::vector<std::pair<std::string, DataItem>> entries;
  for (const auto& [key, value] : json_->items()) entries.emplace_back(key, DataItem(file_, value));
  return entries;
}

Fields::Fields(const DataItem& object) : object_(object) {
  if (!object.json_->is_object()) object.FailAs("an object");
}

std::optional<DataItem> Fields::Find(const char* key) {
  asked_.emplace_back(key);
  const auto found = object_.json_->find(key);
  if (found == object_.json_->end()) return std::nullopt;
  return DataItem(object_.file_, *found);
}

DataItem Fields::At(const char* key) {
  const auto item = Find(key);
  if (!item) object_.Fail("the key \"" + std::string(key) + "\" is missing");
  return *item;
}

std::vector<std::string> Fields::Unknown() const {
  std::vector<std::string> complaints;
  for (const auto& [key, value] : object_.json_->items()) {
    if (std::find(asked_.begin(), asked_.end(), key) == asked_.end())
      complaints.push_back("unknown key \"" + key + "\"." + DidYouMean(key, asked_));
  }
  return complaints;
}

void Fields::End() const {
  const std::vector<std::string> complaints = Unknown();
  if (!complaints.empty()) object_.Fail(complaints.front());
}

template <typename Parse>
DataItem DataItem::Parsed(std::string_view text, const std::string& file, Parse parse) {
  if (!IsUtf8(text)) throw DataError(file, "this is not UTF-8 text");
  try {
    const auto read = std::make_shared<const File>(File{file, parse(text)});
    return DataItem(read, read->json);
  } catch (const Json::exception& error) {
    throw DataError(file, Complaint(error));
  }
}

DataItem ReadOwnData(std::string_view text, const std::string& file) {
  return DataItem::Parsed(text, file, [](std::string_view json) { return Json::parse(json); });
}

DataItem ReadData(std::string_view text, const std::string& file) {
  // The reader of JSON would take the last of two fields with the same key in silence.
  std::vector<std::set<std::string>> open;
  const auto note = [&](int, Json::parse_event_t event, Json& parsed) {
    if (event == Json::parse_event_t::object_start) open.emplace_back();
    if (event == Json::parse_event_t::object_end) open.pop_back();
    if (event == Json::parse_event_t::key && !open.back().insert(parsed.get<std::string>()).second)
      throw DataError(file, "the key \"" + parsed.get<std::string>() + "\" stands there twice in one object");
    return true;
  };
  return DataItem::Parsed(text, file, [&](std::string_view json) { return Json::parse(json, note); });
}

DataItem ReadResource(std::string_view path) { return ReadOwnData(Resource(path), std::string(path)); }

}  // namespace cordboard::workbench
