// A record as an add makes it: one value for each column.
#pragma once

#include <initializer_list>
#include <string_view>
#include <utility>

#include "script/List.h"

namespace cordboard {

// A column that does not come from the form: it has a value of its own, or the element of a list at an index, which is
// read when the column's turn comes, so that a list that is too short fails the call there.
class GivenValue {
 public:
  GivenValue(std::string_view name, Value value) : column(name), value_(std::move(value)) {}
  GivenValue(std::string_view name, const List& list, std::size_t index) : column(name), list_(&list), index_(index) {}

  Value Get() const { return list_ == nullptr ? value_ : (*list_)[index_]; }

  const std::string_view column;

 private:
  Value value_;
  const List* list_ = nullptr;
  std::size_t index_ = 0;
};

// One value for each column, in their order: a column that is given has its value there, "CMDID" takes a new
// identifier, any other the form's value. Names are compared exactly, so that a "CmdId" is read from the form.
List Record(const List& columns, std::initializer_list<GivenValue> given = {});

// The value that a record has in a column; empty where the columns do not name it.
Value ValueOf(std::string_view column, const List& columns, const List& record);

}  // namespace cordboard
