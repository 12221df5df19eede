// A list of valid values, kept as what built it. It is put together only when somebody reads it whole; whether one
// value is in it is answered step by step from the last, by look-ups, so that a check costs the same in a large
// exchange. Values are texts; a row without one gives nothing.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/exchange/FixedValues.h"
#include "workbench/exchange/RuleStatements.h"
#include "workbench/forms/RowValues.h"

namespace cordboard::workbench {

struct ValidValue {
  std::string value;
  std::string description;
  friend bool operator==(const ValidValue&, const ValidValue&) = default;
};

// Which values of a list are wanted: those that `accept` takes, which may be asked about a value twice. It takes none
// that the table `unusedOf` marks as used, so that a list that draws from this table need not read them.
struct Wanted {
  std::function<bool(const std::string& value)> accept = {};
  std::string unusedOf = {};
};

class ValueList {
 public:
  // Replace the list, add to it, and take away from it, with the first column of a statement's rows (and the second as
  // descriptions), or with fixed values.
  void Collect(ListStatement statement);
  void Collect(const std::shared_ptr<const DescribedValues>& values);
  void Add(ListStatement statement);
  void Subtract(ListStatement statement);
  void Push(const std::string& value);
  void PushRange(long long from, long long to);
  void Remove(const std::string& value);
  void RemoveRange(long long from, long long to);
  // Goes on with the steps of another list, which may replace what is there.
  void Append(const ValueList& changes);

  // Hands the whole list on, in order, value by value. `take` runs no statement and does not fail; where it answers
  // false, that is all.
  using Take = RowValues::Take;
  void Each(const Take& take) const;
  std::vector<ValidValue> All() const;
  std::size_t Count() const;
  // The first values, in the same order, of those that are wanted. Costs what they cost, not what the list costs.
  std::vector<ValidValue> First(std::size_t count, const Wanted& wanted = {}) const;
  bool Contains(const std::string& value) const;
  // Whether its values are rows of a pool (workbench/exchange/PoolList.h): each further one of these costs more than
  // the one before.
  bool DrawsFromPool() const;
  // Whether the list takes the value away from what it goes on with.
  bool TakesAway(const std::string& value) const;

 private:
  // Some values, by what can be asked of them.
  struct Values {
    // Whether a value is one of them, by a look-up.
    std::function<bool(const std::string& value)> hold;
    // Offers them in order, and need not offer what `unusedOf` marks as used; they are read in pages of this size and
    // more. Values that are known without the database need not offer themselves to be taken away.
    std::function<void(std::size_t page, const std::string& unusedOf, const Take& take)> offer;
    std::function<bool()> drawFromPool = [] { return false; };
  };
  // Adds the values to the list or takes them away.
  struct Step {
    bool adds;
    Values values;
  };

  class Gone;

  std::vector<Gone> GoneFrom(std::vector<Step>::const_iterator step, std::size_t lookUps) const;
  // The last step that holds the value; nothing where none does.
  const Step* LastWith(const std::string& value) const;
  static Values Rows(ListStatement statement);
  static Values Fixed(const std::shared_ptr<const DescribedValues>& values);
  static Values One(const std::string& value);
  static Values Numbers(long long from, long long to);

  std::vector<Step> steps_;
  bool replaces_ = false;  // what stands before the steps, in a list that goes on with this one
};

}  // namespace cordboard::workbench
