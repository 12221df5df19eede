// A list of valid values, kept as what built it. It is put together only when somebody reads it whole; whether one
// value is in it is answered step by step from the last, by look-ups, so that a check costs the same in a large
// exchange. Values are texts; a row without one gives nothing.
#pragma once

#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "script/Value.h"
#include "workbench/exchange/RuleStatements.h"

namespace cordboard::workbench {

struct ValidValue {
  std::string value;
  std::string description;
  friend bool operator==(const ValidValue&, const ValidValue&) = default;
};

// The statement that asks whether `list` gives a value, as an inner query, so that the database can use its indexes.
// Its parameters are those of `list` and then the value as a text and, where it is one, as a number.
ListStatement Membership(const ListStatement& list, const std::string& value);

class ValueList {
 public:
  // Replace the list, add to it, and take away from it, with the first column of a statement's rows (and the second as
  // descriptions).
  void Collect(ListStatement statement);
  void Add(ListStatement statement) { steps_.push_back(AddRows{std::move(statement)}); }
  void Subtract(ListStatement statement) { steps_.push_back(SubtractRows{std::move(statement)}); }
  void Push(std::string value) { steps_.push_back(PushValue{std::move(value)}); }
  void PushRange(long long from, long long to) { steps_.push_back(PushNumbers{from, to}); }
  void Remove(std::string value) { steps_.push_back(RemoveValue{std::move(value)}); }
  void RemoveRange(long long from, long long to) { steps_.push_back(RemoveNumbers{from, to}); }
  // Goes on with the steps of another list, which may replace what is there.
  void Append(const ValueList& changes);

  // The whole list, in order.
  std::vector<ValidValue> All() const;
  // The first values, in the same order, of those that `accept` takes. Costs what they cost, not what the list costs.
  using Accept = std::function<bool(const std::string& value)>;
  std::vector<ValidValue> First(std::size_t count, const Accept& accept = {}) const;
  bool Contains(const std::string& value) const;

 private:
  struct Clear {};
  struct AddRows {
    ListStatement statement;
  };
  struct SubtractRows {
    ListStatement statement;
  };
  struct PushValue {
    std::string value;
  };
  struct PushNumbers {
    long long from;
    long long to;
  };
  struct RemoveValue {
    std::string value;
  };
  struct RemoveNumbers {
    long long from;
    long long to;
  };

  using Step = std::variant<Clear, AddRows, SubtractRows, PushValue, PushNumbers, RemoveValue, RemoveNumbers>;

  static bool TakesAway(const Step& step, const std::string& value);

  std::vector<Step> steps_;
};

}  // namespace cordboard::workbench
