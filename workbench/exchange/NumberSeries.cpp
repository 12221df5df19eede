#include "workbench/exchange/NumberSeries.h"

#include <algorithm>
#include <vector>

#include "script/Conversions.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/text/Elements.h"

namespace cordboard::workbench {

namespace {

struct Range {
  std::string from;
  std::string to;
};

// The numbers of a range, one by one.
using Numbers = std::vector<std::string>;
using Refusal = std::optional<SeriesRefusal>;

bool AllDigits(const std::string& text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

std::string Written(const Range& range) { return range.from == range.to ? range.from : range.from + "&&" + range.to; }

// Numbers of one length compare as their texts do; numbers of other lengths are other numbers.
bool Overlap(const Range& left, const Range& right) {
  return left.from.size() == right.from.size() && left.from <= right.to && right.from <= left.to;
}

// Whether a number of the range begins with the constant, or is it.
bool HoldsNumberThatBeginsWith(const Range& range, const std::string& constant) {
  if (constant.empty() || constant.size() > range.from.size()) return false;
  return range.from.substr(0, constant.size()) <= constant && constant <= range.to.substr(0, constant.size());
}

Refusal FindCollision(Exchange& exchange, const Range& range, const Numbers& numbers) {
  Connection& database = exchange.Dynamic();
  // The constants of the number plan: a handful.
  const RowSet constants = database.Run("SELECT [Start] FROM [NANSIBlockedRange] WHERE [End] IS NULL");
  for (std::size_t row = 0; row < constants.RowCount(); ++row) {
    const std::string constant = Joined(Trim(constants[0][row]));
    if (HoldsNumberThatBeginsWith(range, constant))
      return SeriesRefusal{Message::ConstantInBlockedRange, Written(range) + " collides with the constant " + constant};
  }
  // Ranges of one length never overlap, so that the last one that begins early enough is the only one to look at.
  const RowSet blocked = database.Run(
      "SELECT [Start], [End] FROM [NANSIBlockedRange] WHERE LENGTH([Start]) = ? AND [Start] <= ? AND [End] IS NOT NULL "
      "ORDER BY [Start] DESC LIMIT 1",
      {range.from.size(), range.to});
  if (!blocked.IsEmpty()) {
    const Range other{Joined(blocked[0][0]), Joined(blocked[1][0])};
    if (Overlap(range, other))
      return SeriesRefusal{Message::ConstantInBlockedRange,
                           Written(range) + " collides with the series " + Written(other)};
  }
  // Mostly nothing stands between the ends; what does may be a number of another length.
  if (!database.Single("SELECT 1 FROM [NANSI] WHERE [NUMSE] BETWEEN ? AND ? LIMIT 1", {range.from, range.to})
           .IsEmpty()) {
    for (const std::string& number : numbers) {
      if (!database.Single("SELECT 1 FROM [NANSI] WHERE [NUMSE] = ? LIMIT 1", {number}).IsEmpty())
        return SeriesRefusal{Message::NumberInUse, "the number " + number + " is in a series already"};
    }
  }
  return std::nullopt;
}

void EnterRange(Connection& database, const std::string& from, const std::string& to, const std::string& numtyp) {
  database.Run("INSERT INTO [NANSIBlockedRange] ([Start], [End], [Numtyp]) VALUES (?, ?, ?)", {from, to, numtyp});
}

void Enter(Exchange& exchange, const Range& range, const Numbers& numbers, const std::string& numtyp) {
  double CmdId = exchange.NewCmdIds(numbers.size()).number();
  for (const std::string& number : numbers)
    exchange.Dynamic().Run("INSERT INTO [NANSI] ([CmdId], [NUMSE], [NUMTYP], [USED]) VALUES (?, ?, ?, ?)",
                           {CmdId++, number, numtyp, false});
  EnterRange(exchange.Dynamic(), range.from, range.to, numtyp);
}

Refusal Initiate(Exchange& exchange, const std::string& numse, const std::string& numtyp) try {
  for (const Numbers& numbers : ElementsByPart(numse)) {
    const Range range{numbers.front(), numbers.back()};
    if (!AllDigits(range.from) || !AllDigits(range.to))
      return SeriesRefusal{Message::ValueNotValidHere, Written(range) + " is not of digits"};
    if (Refusal collision = FindCollision(exchange, range, numbers)) return collision;
    Enter(exchange, range, numbers, numtyp);
  }
  return std::nullopt;
} catch (const ElementsError& error) {
  return SeriesRefusal{Message::ValueNotValidHere, error.what()};
}

// The number before and the one after this one, of as many digits; for numbers that have one.
std::string NumberBefore(std::string number) {
  auto digit = number.rbegin();
  for (; *digit == '0'; ++digit) *digit = '9';
  --*digit;
  return number;
}

std::string NumberAfter(std::string number) {
  auto digit = number.rbegin();
  for (; *digit == '9'; ++digit) *digit = '0';
  ++*digit;
  return number;
}

}  // namespace

void IndexSeries(Connection& database) {
  database.Execute(
      "CREATE INDEX [NANSIBlockedRange by length] ON [NANSIBlockedRange] (LENGTH([Start]), [Start]);"
      "CREATE INDEX [NANSIBlockedRange by type] ON [NANSIBlockedRange] ([Numtyp], LENGTH([Start]), [Start])");
}

std::optional<SeriesRefusal> InitiateSeries(Exchange& exchange, const std::string& numse, const std::string& numtyp) {
  Transaction transaction(exchange);
  Refusal refusal = Initiate(exchange, numse, numtyp);
  if (!refusal) transaction.Commit();
  return refusal;
}

std::set<std::string> SeriesStarts(Exchange& exchange) {
  const RowSet found = exchange.Dynamic().Run("SELECT [Start] FROM [NANSIBlockedRange] WHERE [End] IS NOT NULL");
  std::set<std::string> starts;
  for (std::size_t row = 0; row < found.RowCount(); ++row) starts.insert(Joined(found[0][row]));
  return starts;
}

void RemoveFromBlockedRange(Exchange& exchange, const std::string& number, const std::string& numtyp) {
  Transaction transaction(exchange);
  Connection& database = exchange.Dynamic();
  // Ranges of one length never overlap: the last one that begins early enough is the only one that can hold the number.
  const RowSet rows = database.Run(
      "SELECT rowid, [Start], [End] FROM [NANSIBlockedRange] WHERE [Numtyp] = ? AND LENGTH([Start]) = ? AND [Start] <= "
      "? ORDER BY [Start] DESC LIMIT 1",
      {numtyp, number.size(), number});
  if (rows.IsEmpty()) return;
  const std::string from = Joined(rows[1][0]);
  const std::string to = rows[2][0].IsNull() ? from : Joined(rows[2][0]);
  if (number > to) return;
  database.Run("DELETE FROM [NANSIBlockedRange] WHERE rowid = ?", {rows[0][0]});
  if (from < number) EnterRange(database, from, NumberBefore(number), numtyp);
  if (number < to) EnterRange(database, NumberAfter(number), to, numtyp);
  transaction.Commit();
}

}  // namespace cordboard::workbench
