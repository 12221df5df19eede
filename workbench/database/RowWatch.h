// Watches rows: which of them statements touch, how each was before the first touch, and how it is at the end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/database/Connection.h"
#include "workbench/database/RowHook.h"
#include "workbench/database/Schema.h"

namespace cordboard::workbench {

// What is watched of a table: columns, by their places in it. The first is the identifier of the row: where it differs
// one row has gone and another has come in its place.
struct WatchedTable {
  const Table* table;
  std::vector<std::size_t> columns;
};

// The watched columns, in their order. Null and the empty text are the same nothing.
using RowImage = std::vector<Value>;

// A row that has come, gone or changed.
struct RowDifference {
  const WatchedTable* table;
  std::optional<RowImage> before;
  std::optional<RowImage> now;
};

// The differences that it gives refer to it.
class RowWatch final : private RowListener {
 public:
  // What is to be watched of a table, asked when it is first touched. Nothing where nothing is.
  using Find = std::function<std::optional<WatchedTable>(const std::string& stored)>;

  RowWatch(Connection& connection, Find find);
  ~RowWatch();
  RowWatch(const RowWatch&) = delete;
  RowWatch& operator=(const RowWatch&) = delete;

  // What has come of the rows that were touched since the last Take or Forget, table by table. Rows that are as they
  // were, since what was done to them was undone or rolled back, are no difference.
  std::vector<RowDifference> Take();
  void Forget();

 private:
  // A row before it was first touched, and after it was last.
  struct Touch {
    std::optional<RowImage> before = {};
    std::optional<RowImage> now = {};
  };
  using Touched = std::map<std::int64_t, Touch>;
  struct Watched {
    std::optional<WatchedTable> table;
    std::string select;  // the rows between two places
    Touched touched = {};
  };
  using Tables = std::map<std::string, Watched, std::less<>>;

  void BeforeChange(const RowTouch& touch) noexcept override;
  void TakenBack() noexcept override { isTakenBack_ = true; }
  Watched& Named(const char* stored);
  void ReadNow(Watched& watched);
  void ReadNow(const Watched& watched, Touched::iterator from, Touched::iterator to);

  Connection& connection_;
  Find find_;
  Tables tables_;
  bool isTakenBack_ = false;  // what rows are now has to be read
};

}  // namespace cordboard::workbench
