#include "workbench/exchange/NumberSeries.h"

#include <algorithm>
#include <span>
#include <vector>

#include "script/Conversions.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/text/Elements.h"

namespace cordboard::workbench {

namespace {

constexpr int rangeNotValid = 60049;
constexpr int numberInUse = 60010;
constexpr int numberBlocked = 60008;

struct Range {
  std::string from;
  std::string to;
};

// The numbers of a range, one by one.
using Numbers = std::span<const std::string>;

bool AllDigits(const std::string& text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

std::string Written(const Range& range) { return range.from == range.to ? range.from : range.from + "&&" + range.to; }

// The ranges and single numbers of the value as typed, one after the other.
std::vector<Range> Ranges(const std::string& numse) {
  std::vector<Range> ranges;
  std::size_t begin = 0;
  while (begin <= numse.size()) {
    std::size_t end = begin;
    while (end < numse.size() && (numse[end] != '&' || numse.compare(end, 2, "&&") == 0))
      end += numse[end] == '&' ? 2 : 1;
    const std::string part = numse.substr(begin, end - begin);
    const std::size_t middle = part.find("&&");
    ranges.push_back({part.substr(0, middle), middle == part.npos ? part : part.substr(middle + 2)});
    begin = end + 1;
  }
  return ranges;
}

// Numbers of one length compare as their texts do; numbers of other lengths are other numbers.
bool Overlap(const Range& left, const Range& right) {
  return left.from.size() == right.from.size() && left.from <= right.to && right.from <= left.to;
}

// Whether a number of the range begins with the constant, or is it.
bool HoldsNumberThatBeginsWith(const Range& range, const std::string& constant) {
  if (constant.empty() || constant.size() > range.from.size()) return false;
  return range.from.substr(0, constant.size()) <= constant && constant <= range.to.substr(0, constant.size());
}

SeriesRefusal FindCollision(Exchange& exchange, const Range& range, Numbers numbers) {
  Connection& database = exchange.Dynamic();
  // The constants of the number plan: a handful.
  const RowSet constants = database.Run("SELECT [Start] FROM [NANSIBlockedRange] WHERE [End] IS NULL");
  for (std::size_t row = 0; row < constants.RowCount(); ++row) {
    const std::string constant = Joined(Trim(constants[0][row]));
    if (HoldsNumberThatBeginsWith(range, constant))
      return {numberBlocked, Written(range) + " collides with the constant " + constant};
  }
  // Ranges of one length never overlap, so that the last one that begins early enough is the only one to look at.
  const RowSet blocked = database.Run(
      "SELECT [Start], [End] FROM [NANSIBlockedRange] WHERE LENGTH([Start]) = ? AND [Start] <= ? AND [End] IS NOT NULL "
      "ORDER BY [Start] DESC LIMIT 1",
      {range.from.size(), range.to});
  if (!blocked.IsEmpty()) {
    const Range other{Joined(blocked[0][0]), Joined(blocked[1][0])};
    if (Overlap(range, other)) return {numberBlocked, Written(range) + " collides with the series " + Written(other)};
  }
  // Mostly nothing stands between the ends; what does may be a number of another length.
  if (!database.Single("SELECT 1 FROM [NANSI] WHERE [NUMSE] BETWEEN ? AND ? LIMIT 1", {range.from, range.to})
           .IsEmpty()) {
    for (const std::string& number : numbers) {
      if (!database.Single("SELECT 1 FROM [NANSI] WHERE [NUMSE] = ? LIMIT 1", {number}).IsEmpty())
        return {numberInUse, "the number " + number + " is in a series already"};
    }
  }
  return {};
}

void EnterRange(Connection& database, const std::string& from, const std::string& to, const std::string& numtyp) {
  database.Run("INSERT INTO [NANSIBlockedRange] ([Start], [End], [Numtyp]) VALUES (?, ?, ?)", {from, to, numtyp});
}

void Enter(Exchange& exchange, const Range& range, Numbers numbers, const std::string& numtyp) {
  double CmdId = exchange.NewCmdIds(numbers.size()).number();
  for (const std::string& number : numbers)
    exchange.Dynamic().Run("INSERT INTO [NANSI] ([CmdId], [NUMSE], [NUMTYP], [USED]) VALUES (?, ?, ?, ?)",
                           {CmdId++, number, numtyp, false});
  EnterRange(exchange.Dynamic(), range.from, range.to, numtyp);
}

SeriesRefusal Initiate(Exchange& exchange, const std::string& numse, const std::string& numtyp) {
  std::vector<std::string> all;
  try {
    all = Elements(numse);
  } catch (const ElementsError& error) {
    return {rangeNotValid, error.what()};
  }
  Numbers rest = all;
  for (const Range& range : Ranges(numse)) {
    if (!AllDigits(range.from) || !AllDigits(range.to)) return {rangeNotValid, Written(range) + " is not of digits"};
    const auto last = std::ranges::find(rest, range.to);
    const Numbers numbers = rest.first(static_cast<std::size_t>(last - rest.begin()) + 1);
    rest = rest.subspan(numbers.size());
    SeriesRefusal collision = FindCollision(exchange, range, numbers);
    if (collision.code != 0) return collision;
    Enter(exchange, range, numbers, numtyp);
  }
  return {};
}

// The number before and behind this one, of as many digits; for numbers that have one.
std::string Before(std::string number) {
  auto digit = number.rbegin();
  for (; *digit == '0'; ++digit) *digit = '9';
  --*digit;
  return number;
}

std::string Behind(std::string number) {
  auto digit = number.rbegin();
  for (; *digit == '9'; ++digit) *digit = '0';
  ++*digit;
  return number;
}

}  // namespace

void IndexSeries(Connection& database) {
  database.Execute(
      "CREATE INDEX [NANSIBlockedRange by constant] ON [NANSIBlockedRange] ([Start]) WHERE [End] IS NULL;"
      "CREATE INDEX [NANSIBlockedRange by length] ON [NANSIBlockedRange] (LENGTH([Start]), [Start]);"
      "CREATE INDEX [NANSIBlockedRange by type] ON [NANSIBlockedRange] ([Numtyp], LENGTH([Start]), [Start])");
}

SeriesRefusal InitiateSeries(Exchange& exchange, const std::string& numse, const std::string& numtyp) {
  Transaction transaction(exchange);
  SeriesRefusal refusal = Initiate(exchange, numse, numtyp);
  if (refusal.code == 0) transaction.Commit();
  return refusal;
}

void RemoveFromBlockedRange(Exchange& exchange, const std::string& number, const std::string& numtyp) {
  Transaction transaction(exchange);
  Connection& database = exchange.Dynamic();
  const RowSet rows = database.Run(
      "SELECT rowid, [Start], [End] FROM [NANSIBlockedRange] WHERE [Numtyp] = ? AND LENGTH([Start]) = ? AND [Start] <= "
      "? ORDER BY [Start] DESC LIMIT 1",
      {numtyp, number.size(), number});
  if (!rows.IsEmpty()) {
    const std::string from = Joined(rows[1][0]);
    const std::string to = rows[2][0].IsNull() ? from : Joined(rows[2][0]);
    if (number <= to) {
      database.Run("DELETE FROM [NANSIBlockedRange] WHERE rowid = ?", {rows[0][0]});
      if (from < number) EnterRange(database, from, Before(number), numtyp);
      if (number < to) EnterRange(database, Behind(number), to, numtyp);
    }
  }
  transaction.Commit();
}

}  // namespace cordboard::workbench
