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
  const int length = static_cast<int>(range.from.size());
  const RowSet constants = database.Run("SELECT [Start] FROM [NANSIBlockedRange] WHERE [End] IS NULL");
  for (std::size_t row = 0; row < constants.RowCount(); ++row) {
    const std::string constant = Joined(Trim(constants[0][row]));
    if (HoldsNumberThatBeginsWith(range, constant))
      return {numberBlocked, Written(range) + " collides with the constant " + constant};
  }
  // Series lie apart, so that the last that begins before the end of the range is the one to look at.
  const RowSet before = database.Run(
      "SELECT [Start], [End] FROM [NANSIBlockedRange] WHERE [Start] <= ? AND LENGTH([Start]) = ? AND +[End] IS NOT "
      "NULL "
      "ORDER BY [Start] DESC LIMIT 1",
      {range.to, length});
  if (!before.IsEmpty()) {
    const Range other{Joined(before[0][0]), Joined(before[1][0])};
    if (Overlap(range, other)) return {numberBlocked, Written(range) + " collides with the series " + Written(other)};
  }
  const Value taken = database.Single(
      "SELECT [NUMSE] FROM [NANSI] WHERE [NUMSE] BETWEEN ? AND ? AND LENGTH([NUMSE]) = ? ORDER BY [NUMSE] LIMIT 1",
      {range.from, range.to, length});
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
      "SELECT rowid, [Start], [End] FROM [NANSIBlockedRange] WHERE [Start] <= ? AND LENGTH([Start]) = ? AND [Numtyp] = "
      "? ORDER BY [Start] DESC LIMIT 1",
      {number, static_cast<int>(number.size()), numtyp});
  if (rows.IsEmpty()) return;
  const Range range{Joined(rows[1][0]), Joined(rows[2][0])};
  if (!Overlap(range, {number, number})) return;
  const std::vector<std::string> numbers = Elements(Written(range));
  const auto at = std::ranges::find(numbers, number);
  if (at == numbers.end()) return;

  const auto enter = [&](const std::string& first, const std::string& last) {
    database.Run("INSERT INTO [NANSIBlockedRange] ([Start], [End], [Numtyp]) VALUES (?, ?, ?)", {first, last, numtyp});
  };
  database.Run("DELETE FROM [NANSIBlockedRange] WHERE rowid = ?", {rows[0][0]});
  if (at != numbers.begin()) enter(range.from, *(at - 1));
  if (at + 1 != numbers.end()) enter(*(at + 1), range.to);
  transaction.Commit();
}

}  // namespace cordboard::workbench
