// Lists and row sets of values. Every access is checked: out of bounds is a RunTimeFailure.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

#include "script/Value.h"

namespace cordboard {

// A one-dimensional list, from index 0. An out-argument that a host leaves alone stays empty: a list without bounds,
// which is not the same as a list of no elements. A host can also give a null in the place of a list.
class List {
 public:
  List() = default;
  List(std::initializer_list<Value> values) : state_(State::Bounded), values_(values) {}
  explicit List(std::vector<Value> values) : state_(State::Bounded), values_(std::move(values)) {}
  static List Null();

  bool IsEmpty() const { return state_ == State::Empty; }
  bool IsNull() const { return state_ == State::Null; }

  // Fails for a list without bounds: for the rules that look at the bounds before they walk.
  void RequireBounds() const { Bounded(); }
  // The index of the last element, -1 for a list of no elements. Fails for a list without bounds.
  int UpperBound() const;
  const Value& operator[](std::size_t index) const;
  Value& operator[](std::size_t index);

  // Walking a list; fails for a list without bounds.
  std::vector<Value>::const_iterator begin() const { return Bounded().begin(); }
  std::vector<Value>::const_iterator end() const { return Bounded().end(); }
  std::size_t size() const { return Bounded().size(); }

  void Append(Value value);

  friend bool operator==(const List&, const List&) = default;

 private:
  enum class State { Empty, Null, Bounded };

  const std::vector<Value>& Bounded() const;

  State state_ = State::Empty;
  std::vector<Value> values_;
};

// The rows of a query, [column][row], both from 0. A query that finds no row leaves it empty, without bounds.
class RowSet {
 public:
  RowSet() = default;
  // Fails with TypeMismatch when the columns differ in length. Columns without rows make an empty row set.
  explicit RowSet(std::vector<std::vector<Value>> columns);

  bool IsEmpty() const { return columns_.empty(); }
  std::size_t RowCount() const { return IsEmpty() ? 0 : columns_.front().size(); }
  std::size_t ColumnCount() const { return columns_.size(); }
  // The index of the last row. Fails for an empty row set: for the rules that walk one without a test.
  int UpperBound() const;
  const List& operator[](std::size_t column) const;

  friend bool operator==(const RowSet&, const RowSet&) = default;

 private:
  std::vector<List> columns_;
};

}  // namespace cordboard
