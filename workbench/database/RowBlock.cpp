#include "workbench/database/RowBlock.h"

#include <sqlite3.h>

#include <array>
#include <bit>
#include <cstring>
#include <utility>
#include <vector>

#include "script/Conversions.h"
#include "workbench/database/StoredText.h"
#include "workbench/text/Sum.h"

namespace cordboard::workbench {

namespace {

constexpr std::size_t longestRun = 100;  // of rows that are in memory at once

enum Kind : char { Null = 'n', Whole = 'w', Real = 'r', Text = 't' };

// Seven bits a byte, the lowest first; the last has no eighth.
void AppendNumber(std::string& bytes, std::uint64_t number) {
  for (; number >= 0x80; number >>= 7) bytes += static_cast<char>(number | 0x80);
  bytes += static_cast<char>(number);
}

void AppendText(std::string& bytes, std::string_view text) {
  AppendNumber(bytes, text.size());
  bytes += text;
}

// Takes from the front what was appended.
class Bytes {
 public:
  explicit Bytes(std::string_view bytes) : left_(bytes) {}

  bool IsEmpty() const { return left_.empty(); }
  std::string_view Take(std::uint64_t count) {
    if (count > left_.size()) throw DatabaseError("the history of the exchange is damaged");
    const std::string_view taken = left_.substr(0, count);
    left_.remove_prefix(count);
    return taken;
  }
  std::uint64_t TakeNumber() {
    std::uint64_t number = 0;
    for (unsigned shift = 0; shift < 64; shift += 7) {
      const auto byte = static_cast<unsigned char>(Take(1).front());
      number |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
      if (byte < 0x80) break;
    }
    return number;
  }
  std::string_view TakeText() { return Take(TakeNumber()); }
  Value TakeValue() {
    switch (Take(1).front()) {
      case Null: return Value::Null();
      case Whole: return static_cast<std::int64_t>(TakeNumber());
      case Real: return std::bit_cast<double>(TakeNumber());
      default: return TakeText();
    }
  }

 private:
  std::string_view left_;
};

}  // namespace

void AppendValue(std::string& row, sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL: row.push_back(Null); return;
    case SQLITE_INTEGER:
      row.push_back(Whole);
      AppendNumber(row, static_cast<std::uint64_t>(sqlite3_value_int64(value)));
      return;
    case SQLITE_FLOAT:
      row.push_back(Real);
      AppendNumber(row, std::bit_cast<std::uint64_t>(sqlite3_value_double(value)));
      return;
    default: break;
  }
  row.push_back(Text);
  AppendText(row, StoredText(value));
}

void RowBlock::Append(std::int64_t place, const std::optional<std::string>& row) {
  AppendNumber(rows, static_cast<std::uint64_t>(place));
  AppendText(rows, row ? *row : "");
}

BlockOfRows::BlockOfRows(Connection& connection, const RowBlock& block) : connection_(connection), block_(block) {
  const RowSet names = connection_.Run("SELECT [name] FROM pragma_table_info(?)", {block.table});
  for (std::size_t i = 0; i < names.RowCount(); ++i) {
    columns_ += (i == 0 ? "[" : ", [") + Joined(names[0][i]) + "]";
    values_ += i == 0 ? "?" : ", ?";
  }
  if (columns_.empty()) throw DatabaseError("the history of the exchange is damaged");
}

template <typename Take>
void BlockOfRows::EachRow(Take take) const {
  for (Bytes bytes(block_.rows); !bytes.IsEmpty();) {
    const auto place = static_cast<std::int64_t>(bytes.TakeNumber());
    take(place, bytes.TakeText());
  }
}

// Rows that follow each other are read by one statement.
BlockOfRows::Now BlockOfRows::Look() {
  const std::string select = "SELECT rowid, row_bytes(" + columns_ + ") FROM [" + block_.table +
                             "] WHERE rowid BETWEEN ? AND ? ORDER BY rowid";
  bool differs = false;
  Sum sum;
  std::vector<std::pair<std::int64_t, std::string_view>> run;  // the places, and how their rows were
  const auto lookAtRun = [&] {
    const RowSet rows = connection_.Run(select, {run.front().first, run.back().first});
    std::size_t row = 0;
    for (const auto& [place, before] : run) {
      const bool stands = row < rows.RowCount() && rows[0][row] == Value(place);
      const std::string_view now = stands ? std::string_view(rows[1][row++].text()) : "";
      differs = differs || now != before;
      std::string length;
      AppendNumber(length, now.size());
      sum.Add(length);
      sum.Add(now);
    }
    run.clear();
  };
  EachRow([&](std::int64_t place, std::string_view before) {
    // In a damaged block the last place of all may be followed by another one.
    const bool goesOn = !run.empty() && run.back().first < place && place - 1 == run.back().first;
    if (!run.empty() && (!goesOn || run.size() == longestRun)) lookAtRun();
    run.emplace_back(place, before);
  });
  if (!run.empty()) lookAtRun();
  return {differs, sum.Written()};
}

void BlockOfRows::Remove() {
  const std::string statement = "DELETE FROM [" + block_.table + "] WHERE rowid = ?";
  EachRow([&](std::int64_t place, std::string_view) { connection_.Run(statement, {place}); });
}

void BlockOfRows::PutBack() {
  const std::string statement =
      "INSERT INTO [" + block_.table + "] (rowid, " + columns_ + ") VALUES (?, " + values_ + ")";
  EachRow([&](std::int64_t place, std::string_view row) {
    if (row.empty()) return;
    std::vector<Value> values = {place};
    for (Bytes bytes(row); !bytes.IsEmpty();) values.push_back(bytes.TakeValue());
    connection_.Run(statement, values);
  });
}

}  // namespace cordboard::workbench
