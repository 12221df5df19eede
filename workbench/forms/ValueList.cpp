#include "workbench/forms/ValueList.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <unordered_set>

#include "script/Conversions.h"
#include "workbench/database/Connection.h"

namespace cordboard::workbench {

namespace {

template <typename... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

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

// Whether a row of the statement has the value in its first column. A number column finds '1' by '01' too, so that what
// was found is looked at once more.
bool Gives(const ListStatement& statement, const std::string& value) {
  const ListStatement asked = Membership(statement, value);
  const RowSet found = asked.database->RunRule(asked.sql, asked.parameters);
  return !found.IsEmpty() && Joined(found[0][0]) == value;
}

constexpr std::size_t smallestPage = 16;

// Offers the rows of a statement one after the other until `offer` has enough. They are read in pages that grow, so
// that the first of many cost little.
template <typename Offer>
void OfferRows(const ListStatement& statement, std::size_t wanted, Offer offer) {
  std::size_t offset = 0;
  for (std::size_t page = std::max(wanted, smallestPage);; page *= 2) {
    std::vector<Value> parameters = statement.parameters;
    parameters.emplace_back(page);
    parameters.emplace_back(offset);
    const RowSet rows = statement.database->RunRule(statement.sql + " LIMIT ? OFFSET ?", parameters);
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      if (!offer({Joined(rows[0][row]), rows.ColumnCount() > 1 ? Joined(rows[1][row]) : ""})) return;
    }
    if (rows.RowCount() < page) return;
    offset += page;
  }
}

}  // namespace

// The order of the outer statement keeps the database from seeking along the order of the inner one.
ListStatement Membership(const ListStatement& list, const std::string& value) {
  std::string columns = "v";
  for (int i = 1; i < list.database->PrepareRule(list.sql); ++i) columns += ", c" + std::to_string(i);
  ListStatement asked{
      list.database,
      "WITH list(" + columns + ") AS (" + list.sql + ") SELECT v FROM list WHERE v IN (?, ?) ORDER BY +v LIMIT 1",
      list.parameters};
  const bool number = IsNumeric(value) && Joined(ToNumber(value)) == value;
  asked.parameters.emplace_back(value);
  asked.parameters.push_back(number ? Value(ToNumber(value)) : Value::Null());
  return asked;
}

void ValueList::Collect(ListStatement statement) {
  steps_.clear();
  steps_.push_back(Clear{});
  Add(std::move(statement));
}

void ValueList::Append(const ValueList& changes) {
  steps_.insert(steps_.end(), changes.steps_.begin(), changes.steps_.end());
}

std::vector<ValidValue> ValueList::All() const {
  std::vector<ValidValue> all;
  const auto remove = [&all](const auto& unwanted) {
    std::erase_if(all, [&](const ValidValue& entry) { return unwanted(entry.value); });
  };
  for (const auto& step : steps_) {
    std::visit(
        Overloaded{
            [&](const Clear&) { all.clear(); },
            [&](const AddRows& add) {
              const RowSet rows = add.statement.database->RunRule(add.statement.sql, add.statement.parameters);
              for (std::size_t row = 0; row < rows.RowCount(); ++row) {
                if (rows[0][row].IsNull() || rows[0][row].IsEmptyText()) continue;
                all.push_back({Joined(rows[0][row]), rows.ColumnCount() > 1 ? Joined(rows[1][row]) : ""});
              }
            },
            [&](const SubtractRows& subtract) {
              const ListStatement& statement = subtract.statement;
              const RowSet rows = statement.database->RunRule(statement.sql, statement.parameters);
              std::unordered_set<std::string> unwanted;
              for (std::size_t row = 0; row < rows.RowCount(); ++row) unwanted.insert(Joined(rows[0][row]));
              remove([&](const std::string& value) { return unwanted.contains(value); });
            },
            [&](const PushValue& push) {
              all.push_back({push.value, ""});
            },
            [&](const PushNumbers& push) {
              for (long long number = push.from; number <= push.to; ++number)
                all.push_back({std::to_string(number), ""});
            },
            [&](const RemoveValue& step_) { remove([&](const std::string& value) { return value == step_.value; }); },
            [&](const RemoveNumbers& step_) {
              remove([&](const std::string& value) { return Within(value, step_.from, step_.to); });
            },
        },
        step);
  }
  return all;
}

bool ValueList::TakesAway(const Step& step, const std::string& value) {
  return std::visit(Overloaded{
                        [&](const SubtractRows& subtract) { return Gives(subtract.statement, value); },
                        [&](const RemoveValue& remove) { return remove.value == value; },
                        [&](const RemoveNumbers& remove) { return Within(value, remove.from, remove.to); },
                        [](const Clear&) { return true; },
                        [](const AddRows&) { return false; },
                        [](const PushValue&) { return false; },
                        [](const PushNumbers&) { return false; },
                    },
                    step);
}

std::vector<ValidValue> ValueList::First(std::size_t count, const Accept& accept) const {
  std::vector<ValidValue> first;
  for (auto step = steps_.begin(); step != steps_.end() && first.size() < count; ++step) {
    // Gives whether more are wanted.
    const auto offer = [&](ValidValue entry) {
      const bool gone =
          std::any_of(step + 1, steps_.end(), [&entry](const Step& later) { return TakesAway(later, entry.value); });
      if (!gone && (!accept || accept(entry.value))) first.push_back(std::move(entry));
      return first.size() < count;
    };
    if (const auto* rows = std::get_if<AddRows>(&*step)) OfferRows(rows->statement, count, offer);
    if (const auto* value = std::get_if<PushValue>(&*step)) offer({value->value, ""});
    if (const auto* numbers = std::get_if<PushNumbers>(&*step)) {
      for (long long number = numbers->from; number <= numbers->to; ++number) {
        if (!offer({std::to_string(number), ""})) break;
      }
    }
  }
  return first;
}

bool ValueList::Contains(const std::string& value) const {
  if (value.empty()) return false;
  for (auto step = steps_.rbegin(); step != steps_.rend(); ++step) {
    // Nothing where this step says nothing about the value.
    const auto decided = std::visit(
        Overloaded{
            [&](const Clear&) { return std::optional(false); },
            [&](const AddRows& add) { return Gives(add.statement, value) ? std::optional(true) : std::nullopt; },
            [&](const SubtractRows& sub) { return Gives(sub.statement, value) ? std::optional(false) : std::nullopt; },
            [&](const PushValue& push) { return push.value == value ? std::optional(true) : std::nullopt; },
            [&](const PushNumbers& push) {
              return Within(value, push.from, push.to) ? std::optional(true) : std::nullopt;
            },
            [&](const RemoveValue& rem) { return rem.value == value ? std::optional(false) : std::nullopt; },
            [&](const RemoveNumbers& rem) {
              return Within(value, rem.from, rem.to) ? std::optional(false) : std::nullopt;
            },
        },
        *step);
    if (decided) return *decided;
  }
  return false;
}

}  // namespace cordboard::workbench
