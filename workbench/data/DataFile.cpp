#include "workbench/data/DataFile.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "workbench/data/Resources.h"
#include "workbench/text/Nearest.h"

namespace cordboard::workbench {

namespace {

using Kind = DataNode::Kind;

// Fields that hardly any object is asked for more of.
constexpr std::size_t usualFields = 32;

// The kind of a value as an error names it.
const char* NameOf(Kind kind) {
  switch (kind) {
    case Kind::Null: return "null";
    case Kind::Truth: return "a truth value";
    case Kind::Number: return "a number";
    case Kind::Text: return "a text";
    case Kind::List: return "a list";
    case Kind::Object: break;
  }
  return "an object";
}

template <typename Take>
void EachIn(const DataNode& whole, Take take) {
  for (const DataNode* node = &whole + 1; node != &whole + whole.size; node += node->size) take(*node);
}

// A list counts its objects from 0 and names those that have a name.
std::string Step(const DataTree& tree, std::size_t index, const DataNode& item) {
  std::string step = "[" + std::to_string(index) + "]";
  if (item.kind != Kind::Object) return step;
  EachIn(item, [&](const DataNode& field) {
    if (tree.Text(field.key) == "name" && field.kind == Kind::Text)
      step += " (" + std::string(tree.Text(field.text)) + ")";
  });
  return step;
}

// How the wanted value is reached, "parameters[3].title".
std::string PlaceIn(const DataTree& tree, const DataNode& whole, const DataNode& wanted) {
  std::string place;
  std::size_t index = 0;
  EachIn(whole, [&](const DataNode& node) {
    const std::size_t number = index++;
    if (&wanted < &node || &wanted >= &node + node.size) return;
    const std::string key(tree.Text(node.key));
    const std::string step = whole.kind == Kind::List ? Step(tree, number, node) : key.empty() ? "\"\"" : key;
    const std::string rest = PlaceIn(tree, node, wanted);
    place = step + (rest.empty() || rest.front() == '[' ? "" : ".") + rest;
  });
  return place;
}

// Gives whether the whole text is such a number.
template <typename Number>
bool ReadNumber(std::string_view text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

}  // namespace

struct DataItem::File {
  std::string name;
  OwnDataTree own;  // of one that the program does not carry
  DataTree tree;
};

template <typename Take>
void DataItem::Each(Take take) const {
  EachIn(*node_, take);
}

std::string_view DataItem::TextAt(TextPlace place) const { return file_->tree.Text(place); }

void DataItem::Fail(const std::string& complaint) const {
  const std::string place = PlaceIn(file_->tree, file_->tree.nodes.front(), *node_);
  throw DataError(file_->name, (place.empty() ? "" : place + ": ") + complaint);
}

void DataItem::FailAs(const char* wanted) const {
  Fail(std::string(wanted) + " is wanted, not " + NameOf(node_->kind));
}

std::string DataItem::Text() const {
  if (node_->kind != Kind::Text) FailAs("a text");
  return std::string(TextAt(node_->text));
}

bool DataItem::Truth() const {
  if (node_->kind != Kind::Truth) FailAs("a truth value");
  return node_->text.length > 0;
}

int DataItem::Whole() const {
  if (node_->kind != Kind::Number) FailAs("a whole number");
  int number = 0;
  if (!ReadNumber(TextAt(node_->text), number))
    Fail("a whole number is wanted, not " + std::string(TextAt(node_->text)));
  return number;
}

Value DataItem::Cell() const {
  if (node_->kind == Kind::Null) return Value::Null();
  if (node_->kind == Kind::Truth) return Truth();
  if (node_->kind != Kind::Number) return Text();
  double number = 0;
  if (!ReadNumber(TextAt(node_->text), number)) FailAs("a number of a lesser magnitude");
  return number;
}

DataItems DataItem::List() const {
  if (node_->kind != Kind::List) FailAs("a list");
  return DataItems(*this);
}

std::size_t DataItems::size() const {
  std::size_t count = 0;
  list_.Each([&count](const DataNode&) { ++count; });
  return count;
}

std::vector<std::pair<std::string, DataItem>> DataItem::Entries() const {
  if (node_->kind != Kind::Object) FailAs("an object");
  std::vector<std::pair<std::string, DataItem>> entries;
  Each([&](const DataNode& node) { entries.emplace_back(TextAt(node.key), DataItem(file_, node)); });
  return entries;
}

Fields::Fields(const DataItem& object) : object_(object) {
  if (object.node_->kind != Kind::Object) object.FailAs("an object");
  asked_.reserve(usualFields);
}

std::optional<DataItem> Fields::Find(std::string_view key) {
  asked_.push_back(key);
  const DataNode* const end = object_.node_ + object_.node_->size;
  for (const DataNode* node = object_.node_ + 1; node != end; node += node->size) {
    // Most keys differ in their length.
    if (node->key.length == key.size() && object_.TextAt(node->key) == key) return DataItem(object_.file_, *node);
  }
  return std::nullopt;
}

DataItem Fields::At(std::string_view key) {
  const auto item = Find(key);
  if (!item) object_.Fail("the key \"" + std::string(key) + "\" is missing");
  return *item;
}

std::vector<std::string> Fields::Unknown() const {
  std::vector<std::string> complaints;
  object_.Each([&](const DataNode& node) {
    const std::string_view key = object_.TextAt(node.key);
    if (std::ranges::find(asked_, key) == asked_.end())
      complaints.push_back("unknown key \"" + std::string(key) + "\"." +
                           DidYouMean(std::string(key), {asked_.begin(), asked_.end()}));
  });
  return complaints;
}

void Fields::End() const {
  const std::vector<std::string> complaints = Unknown();
  if (!complaints.empty()) object_.Fail(complaints.front());
}

DataItem ReadData(std::string_view text, const std::string& file) {
  try {
    const auto read =
        std::make_shared<DataItem::File>(DataItem::File{.name = file, .own = ParseData(text), .tree = {}});
    read->tree = read->own;
    return DataItem(read, read->tree.nodes.front());
  } catch (const std::runtime_error& error) {
    throw DataError(file, error.what());
  }
}

DataItem ReadResource(std::string_view path) {
  const DataTree tree = ResourceTrees().at(path);
  const auto carried =
      std::make_shared<DataItem::File>(DataItem::File{.name = std::string(path), .own = {}, .tree = tree});
  return DataItem(carried, tree.nodes.front());
}

}  // namespace cordboard::workbench
