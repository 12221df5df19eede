// A record as an add makes it: one value for each column.
#pragma once

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <string_view>
#include <utility>

#include "script/List.h"

namespace cordboard {

// A column that does not come from the form: it has a value of its own, or one that is made when the column's turn
// comes. So is the element of a list at an index: a list that is too short fails the call there.
class GivenValue {
 public:
  GivenValue(std::string_view name, Value value) : column(name), make_([value = std::move(value)] { return value; }) {}
  GivenValue(std::string_view name, std::function<Value()> make) : column(name), make_(std::move(make)) {}
  GivenValue(std::string_view name, const List& list, std::size_t index)
      : column(name), make_([&list, index] { return list[index]; }) {}

  Value Get() const { return make_(); }

  const std::string_view column;

 private:
  std::function<Value()> make_;
};

// One value for each column, in their order: a column that is given has its value there, "CMDID" takes a new
// identifier, any other the form's value. Names are compared exactly, so that a "CmdId" is read from the form.
List Record(const List& columns, std::initializer_list<GivenValue> given = {});

// The value that a record has in a column; empty where the columns do not name it.
Value ValueOf(std::string_view column, const List& columns, const List& record);

}  // namespace cordboard
