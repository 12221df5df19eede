#include "workbench/forms/ValueList.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <memory>
#include <optional>
#include <unordered_set>

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

constexpr std::size_t lookUpsOfFirst = 5000;  // before what they look for is read whole

}  // namespace

// --- Values.

ValueList::Values ValueList::Rows(ListStatement statement) {
  const auto rows = std::make_shared<RowValues>(std::move(statement));
  return {.hold = [rows](const std::string& value) { return rows->Hold(value); },
          .offer = [rows](std::size_t page, const std::string& unusedOf,
                          const Take& take) { rows->Offer(page, unusedOf, take); },
          .drawFromPool = [rows] { return rows->DrawFromPool(); }};
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
    // They are read before: a set that is told how many there are lays them out once.
    std::vector<std::string> all;
    values_.offer(wholePage, {}, [&all](auto value, auto) { return all.emplace_back(value), true; });
    all_.emplace(std::make_move_iterator(all.begin()), std::make_move_iterator(all.end()), all.size());
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
  // Most lists are one step: its values go on as they come.
  if (steps_.size() == 1 && steps_.front().adds) return steps_.front().values.offer(wholePage, {}, take);
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
