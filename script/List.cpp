#include "script/List.h"

#include "script/RunTimeFailure.h"

namespace cordboard {

namespace {

[[noreturn]] void OutOfRange(const std::string& what) {
  throw RunTimeFailure(RunTimeFailure::Cause::SubscriptOutOfRange, what);
}

}  // namespace

List List::Null() {
  List list;
  list.state_ = State::Null;
  return list;
}

const std::vector<Value>& List::Bounded() const {
  if (state_ != State::Bounded) OutOfRange("a list without bounds was walked");
  return values_;
}

int List::UpperBound() const { return static_cast<int>(Bounded().size()) - 1; }

const Value& List::operator[](std::size_t index) const {
  if (index >= Bounded().size()) OutOfRange("no element " + std::to_string(index) + " in the list");
  return values_[index];
}

Value& List::operator[](std::size_t index) {
  if (index >= Bounded().size()) OutOfRange("no element " + std::to_string(index) + " in the list");
  return values_[index];
}

void List::Append(Value value) {
  state_ = State::Bounded;
  values_.push_back(std::move(value));
}

RowSet::RowSet(std::vector<std::vector<Value>> columns) {
  for (const auto& column : columns) {
    if (column.size() != columns.front().size())
      throw RunTimeFailure(RunTimeFailure::Cause::TypeMismatch, "the columns of a row set differ in length");
  }
  if (columns.empty() || columns.front().empty()) return;
  for (auto& column : columns) columns_.emplace_back(std::move(column));
}

int RowSet::UpperBound() const {
  if (IsEmpty()) OutOfRange("an empty row set was walked");
  return static_cast<int>(RowCount()) - 1;
}

const List& RowSet::operator[](std::size_t column) const {
  if (column >= columns_.size()) OutOfRange("no column " + std::to_string(column) + " in the row set");
  return columns_[column];
}

}  // namespace cordboard
