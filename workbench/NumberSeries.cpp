#include "workbench/NumberSeries.h"

#include <algorithm>
#include <vector>

#include "script/Conversions.h"
#include "workbench/Elements.h"
#include "workbench/Exchange.h"

namespace cordboard::workbench {

namespace {

constexpr int rangeNotValid = 60049;
constexpr int numberInUse = 60010;
constexpr int numberBlocked = 60008;

struct Range {
  std::string from;
  std::string to;
};

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

SeriesRefusal FindCollision(Exchange& exchange, const Range& range) {
  Connection& database = exchange.Dynamic();
  const RowSet blocked = database.Run("SELECT [Start], [End] FROM [NANSIBlockedRange]");
  for (std::size_t row = 0; row < blocked.RowCount(); ++row) {
    const std::string start(Joined(Trim(blocked[0][row])));
    const Value end = Trim(blocked[1][row]);
    if (end.IsNull() && HoldsNumberThatBeginsWith(range, start))
      return {numberBlocked, Written(range) + " collides with the constant " + start};
    const Range other{start, Joined(end)};
    if (!end.IsNull() && Overlap(range, other))
      return {numberBlocked, Written(range) + " collides with the series " + Written(other)};
  }
  const Value taken = database.Single(
      "SELECT [NUMSE] FROM [NANSI] WHERE [NUMSE] BETWEEN ? AND ? AND LENGTH([NUMSE]) = ? ORDER BY [NUMSE] LIMIT 1",
      {range.from, range.to, static_cast<int>(range.from.size())});
  if (!taken.IsEmpty()) return {numberInUse, "the number " + Joined(taken) + " is in a series already"};
  return {};
}

void Enter(Exchange& exchange, const Range& range, const std::string& numtyp) {
  Connection& database = exchange.Dynamic();
  for (const std::string& number : Elements(Written(range)))
    database.Run("INSERT INTO [NANSI] ([CmdId], [NUMSE], [NUMTYP], [USED]) VALUES (?, ?, ?, ?)",
                 {exchange.NewCmdId(), number, numtyp, false});
  database.Run("INSERT INTO [NANSIBlockedRange] ([Start], [End], [Numtyp]) VALUES (?, ?, ?)",
               {range.from, range.to, numtyp});
}

SeriesRefusal Initiate(Exchange& exchange, const std::string& numse, const std::string& numtyp) {
  try {
    Elements(numse);
  } catch (const ElementsError& error) {
    return {rangeNotValid, error.what()};
  }
  for (const Range& range : Ranges(numse)) {
    if (!AllDigits(range.from) || !AllDigits(range.to)) return {rangeNotValid, Written(range) + " is not of digits"};
    SeriesRefusal collision = FindCollision(exchange, range);
    if (collision.code != 0) return collision;
    Enter(exchange, range, numtyp);
  }
  return {};
}

}  // namespace

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
      "? "
      "AND COALESCE([End], [Start]) >= ? LIMIT 1",
      {numtyp, static_cast<int>(number.size()), number, number});
  if (!rows.IsEmpty()) {
    const std::string from = Joined(rows[1][0]);
    const std::string to = rows[2][0].IsNull() ? from : Joined(rows[2][0]);
    database.Run("DELETE FROM [NANSIBlockedRange] WHERE rowid = ?", {rows[0][0]});
    const std::vector<std::string> numbers = Elements(Written({from, to}));
    const auto at = std::ranges::find(numbers, number);
    const auto enter = [&](const std::string& first, const std::string& last) {
      database.Run("INSERT INTO [NANSIBlockedRange] ([Start], [End], [Numtyp]) VALUES (?, ?, ?)",
                   {first, last, numtyp});
    };
    if (at != numbers.begin() && at != numbers.end()) enter(from, *(at - 1));
    if (at != numbers.end() && at + 1 != numbers.end()) enter(*(at + 1), to);
  }
  transaction.Commit();
}

}  // namespace cordboard::workbench
