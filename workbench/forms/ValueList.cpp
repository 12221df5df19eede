#include "workbench/forms/ValueList.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <memory>
#include <optional>
#include <unordered_set>

#include "script/Conversions.h"
#include "workbench/database/Connection.h"
#include "workbench/exchange/PoolList.h"

namespace cordboard::workbench {

namespace {

// The number that the text is exactly, "7" but not "07".
std::optional<long long> WholeNumber(const std::string& text) {
  long long number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || std::to_string(number) != text) return std::nullopt;
  return number;
}

bool Within(const std::string& value, long long from, long long to) {
  const auto number = WholeNumber(value);
  return number && *number >= from && *number <= to;
}

// A statement, and the question for one of its values once somebody has asked.
struct RowList {
  ListStatement all;
  std::optional<ListStatement> one = {};
};

// Whether a row has the value, which it is asked for as a text or as a number. A number column finds '1' by '01' too,
// so that what was found is looked at once more.
bool GivesAs(const Value& asked, const RowList& list, const std::string& value) {
  std::vector<Value> parameters = list.one->parameters;
  parameters.push_back(asked);
  const RowSet found = list.one->database->RunRule(list.one->sql, parameters);
  return !found.IsEmpty() && Joined(found[0][0]) == value;
}

// Whether a row of the statement has the value in its first column. A column without a type keeps texts and numbers
// apart. The two questions are not one with IN, for which the database would make a table each time.
bool Gives(RowList& list, const std::string& value) {
  if (!list.one) list.one = Membership(list.all);
  if (GivesAs(value, list, value)) return true;
  return IsNumeric(value) && Joined(ToNumber(value)) == value && GivesAs(ToNumber(value), list, value);
}

constexpr std::size_t smallestPage = 16;
constexpr std::size_t wholePage = std::numeric_limits<std::size_t>::max();
constexpr std::size_t lookUpsOfFirst = 5000;  // before what they look for is read whole

// Of a list of which one value is wanted that is free, mostly the first that is free is this one: a look-up tells.
// Gives whether `take` wants no more.
template <typename Take>
bool OfferFront(RowList& list, const std::string& unusedOf, const Take& take) {
  const std::string front = FrontOfPool(list.all, unusedOf);
  return !front.empty() && Gives(list, front) && !take(front, "");
}

// Gives whether `take` wants more than the rows from `row` on.
template <typename Take>
bool OfferEach(const RowSet& rows, const Take& take, std::size_t row = 0) {
  for (; row < rows.RowCount(); ++row) {
    if (rows[0][row].IsNull() || rows[0][row].IsEmptyText()) continue;
    if (!take(Joined(rows[0][row]), rows.ColumnCount() > 1 ? Joined(rows[1][row]) : "")) return false;
  }
  return true;
}

// Gives false where the list draws from no pool.
template <typename Take>
bool OfferFromPool(const ListStatement& statement, std::size_t count, const std::string& unusedOf, const Take& take) {
  for (std::size_t offered = 0;; offered = count, count *= 2) {
    const std::optional<RowSet> rows = FirstOfPool(statement, count, unusedOf);
    if (!rows) return false;
    if (!OfferEach(*rows, take, offered) || rows->RowCount() < count) return true;
  }
}

// The pages grow, so that the first rows of many cost little; a whole list is read at once.
template <typename Take>
void OfferRows(const ListStatement& statement, std::size_t page, const std::string& unusedOf, const Take& take) {
  if (page == wholePage) {
    statement.database->ReadRule(statement.sql, statement.parameters, [&take](auto value, auto description) {
      return value.empty() || take(value, description);
    });
    return;
  }
  if (OfferFromPool(statement, page, unusedOf, take)) return;
  page = std::max(page, smallestPage);
  for (std::size_t offset = 0;; offset += page, page *= 2) {
    std::vector<Value> parameters = statement.parameters;
    parameters.emplace_back(page);
    parameters.emplace_back(offset);
    const RowSet rows = statement.database->RunRule(statement.sql + " LIMIT ? OFFSET ?", parameters);
    if (!OfferEach(rows, take) || rows.RowCount() < page) return;
  }
}

}  // namespace

ListStatement Membership(const ListStatement& list) {
  std::string columns = "v";
  for (int i = 1; i < list.database->PrepareRule(list.sql); ++i) columns += ", c" + std::to_string(i);
  // Sorted or grouped rows would all have to be made.
  const std::string rows = list.sql.substr(0, list.order);
  // Few rows have the value: an index of it is better than one of what else they have in common.
  return {list.database,
          "WITH list(" + columns + ") AS (" + rows + ") SELECT v FROM list WHERE likelihood(v = ?, 0.0000001) LIMIT 1",
          list.parameters};
}

// --- Values.

ValueList::Values ValueList::Rows(ListStatement statement) {
  const auto rows = std::make_shared<RowList>(RowList{std::move(statement)});
  return {.hold = [rows](const std::string& value) { return Gives(*rows, value); },
          .offer =
              [rows](std::size_t page, const std::string& unusedOf, const Take& take) {
                const bool isOneWanted = page == 1;
                if (isOneWanted && OfferFront(*rows, unusedOf, take)) return;
                OfferRows(rows->all, page, unusedOf, take);
              },
          .drawFromPool = [rows] { return workbench::DrawsFromPool(rows->all); }};
}

ValueList::Values ValueList::Fixed(const std::shared_ptr<const DescribedValues>& values) {
  return {.hold =
              [values](const std::string& value) {
                return std::ranges::find(*values, value, &DescribedValues::value_type::first) != values->end();
              },
          .offer =
              [values](std::size_t, const std::string&, const Take& take) {
                for (const auto& [value, description] : *values) {
                  if (!take(value, description)) return;
                }
              }};
}

ValueList::Values ValueList::One(const std::string& one) {
  return {.hold = [one](const std::string& value) { return value == one; },
          .offer = [one](std::size_t, const std::string&, const Take& take) { take(one, ""); }};
}

ValueList::Values ValueList::Numbers(long long from, long long to) {
  return {.hold = [from, to](const std::string& value) { return Within(value, from, to); },
          .offer =
              [from, to](std::size_t, const std::string&, const Take& take) {
                for (long long number = from; number <= to && take(std::to_string(number), "");) ++number;
              }};
}

// --- Steps.

void ValueList::Collect(ListStatement statement) {
  steps_.clear();
  replaces_ = true;
  Add(std::move(statement));
}

void ValueList::Collect(const std::shared_ptr<const DescribedValues>& values) {
  steps_ = {{true, Fixed(values)}};
  replaces_ = true;
}

void ValueList::Add(ListStatement statement) { steps_.push_back({true, Rows(std::move(statement))}); }
void ValueList::Subtract(ListStatement statement) { steps_.push_back({false, Rows(std::move(statement))}); }
void ValueList::Push(const std::string& value) { steps_.push_back({true, One(value)}); }
void ValueList::PushRange(long long from, long long to) { steps_.push_back({true, Numbers(from, to)}); }
void ValueList::Remove(const std::string& value) { steps_.push_back({false, {One(value).hold, {}}}); }
void ValueList::RemoveRange(long long from, long long to) { steps_.push_back({false, {Numbers(from, to).hold, {}}}); }

void ValueList::Append(const ValueList& changes) {
  if (changes.replaces_) {
    *this = changes;
  } else {
    steps_.insert(steps_.end(), changes.steps_.begin(), changes.steps_.end());
  }
}

// --- Questions.

// What a step takes away. Look-ups are cheap for few values; to read all that it has costs less than as many of them.
class ValueList::Gone {
 public:
  Gone(const Values& values, std::size_t lookUps) : values_(values), lookUps_(lookUps) {}

  bool Has(const std::string& value) {
    if (values_.offer && !all_ && lookUps_ == 0) ReadAll();
    if (all_) return all_->contains(value);
    if (lookUps_ > 0) --lookUps_;
    return values_.hold(value);
  }
  void ReadAll() {
    if (!values_.offer) return;
    all_.emplace();
    values_.offer(wholePage, {}, [this](auto value, auto) { return all_->emplace(value), true; });
  }

 private:
  const Values& values_;
  std::size_t lookUps_;  // that are left
  std::optional<std::unordered_set<std::string>> all_;
};

// What the steps from here on take away, in their order.
std::vector<ValueList::Gone> ValueList::GoneFrom(std::vector<Step>::const_iterator step, std::size_t lookUps) const {
  std::vector<Gone> gone;
  for (; step != steps_.end(); ++step) {
    if (!step->adds) gone.emplace_back(step->values, lookUps);
  }
  return gone;
}

// What is taken away is read before: no statement runs while another one hands its rows on.
void ValueList::Each(const Take& take) const {
  std::vector<Gone> gone = GoneFrom(steps_.begin(), 0);
  std::ranges::for_each(gone, &Gone::ReadAll);
  bool goesOn = true;
  auto later = gone.begin();
  for (auto step = steps_.begin(); step != steps_.end() && goesOn; ++step) {
    if (!step->adds) {
      ++later;
      continue;
    }
    const auto isGone = [&](const std::string& value) {
      return std::any_of(later, gone.end(), [&value](Gone& each) { return each.Has(value); });
    };
    step->values.offer(wholePage, {}, [&](std::string_view value, std::string_view description) {
      if (later == gone.end() || !isGone(std::string(value))) goesOn = take(value, description);
      return goesOn;
    });
  }
}

std::vector<ValidValue> ValueList::All() const {
  std::vector<ValidValue> all;
  Each([&all](auto value, auto description) {
    all.push_back({std::string(value), std::string(description)});
    return true;
  });
  return all;
}

std::size_t ValueList::Count() const {
  std::size_t count = 0;
  Each([&count](auto, auto) { return ++count, true; });
  return count;
}

std::vector<ValidValue> ValueList::First(std::size_t count, const Wanted& wanted) const {
  std::vector<ValidValue> first;
  for (auto step = steps_.begin(); step != steps_.end() && first.size() < count; ++step) {
    if (!step->adds) continue;
    std::vector<Gone> gone = GoneFrom(step, lookUpsOfFirst);
    step->values.offer(count, wanted.unusedOf, [&](std::string_view offered, std::string_view description) {
      std::string value(offered);
      const bool isGone = std::ranges::any_of(gone, [&value](Gone& each) { return each.Has(value); });
      if (!isGone && (!wanted.accept || wanted.accept(value)))
        first.push_back({std::move(value), std::string(description)});
      return first.size() < count;
    });
  }
  return first;
}

// The last step that speaks of the value decides.
const ValueList::Step* ValueList::LastWith(const std::string& value) const {
  if (value.empty()) return nullptr;
  const auto step =
      std::find_if(steps_.rbegin(), steps_.rend(), [&value](const Step& each) { return each.values.hold(value); });
  return step == steps_.rend() ? nullptr : &*step;
}

bool ValueList::Contains(const std::string& value) const {
  const Step* step = LastWith(value);
  return step != nullptr && step->adds;
}

bool ValueList::DrawsFromPool() const {
  return std::ranges::any_of(steps_, [](const Step& step) { return step.adds && step.values.drawFromPool(); });
}

bool ValueList::TakesAway(const std::string& value) const {
  const Step* step = LastWith(value);
  return step != nullptr && !step->adds;
}

}  // namespace cordboard::workbench
