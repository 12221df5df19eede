// When the tables of a connection last changed, on a clock that moves with every change: what was found in some tables
// still holds where none of them has changed since. Follows the transactions of the connection.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace cordboard::workbench {

class ChangeClock {
 public:
  using Table = std::size_t;
  using Time = std::uint64_t;

  // The table of this stored name.
  Table Named(std::string_view name);
  Time Now() const { return now_; }

  // Rows have come behind all others of the table.
  void Appended(Table table) { tables_[table].appended = ++now_; }
  // Rows of the table have changed or are gone.
  void Rewritten(Table table) { tables_[table].rewritten = ++now_; }
  // Whatever was known holds no more.
  void Everything() { everything_ = ++now_; }

  // Whether all tables are as they were then.
  bool NoneSince(Time time, const std::vector<Table>& tables) const;
  // Whether the rows of then are as they were, and what has come since stands behind them.
  bool OnlyAppendedSince(Time time, Table table) const;

  // A transaction starts or ends, an outermost or one within it. While none is open others may change the tables.
  void Start();
  void Commit() { starts_.pop_back(); }
  void RollBack();

 private:
  struct Times {
    Time appended = 0;
    Time rewritten = 0;
  };

  Time now_ = 0;
  Time everything_ = 0;
  std::map<std::string, Table, std::less<>> numbers_;
  std::vector<Times> tables_;
  std::vector<Time> starts_;  // of the open transactions, the outermost first
};

}  // namespace cordboard::workbench
