// Notes what rows were before they were touched, so that a database can be taken back to how it was: of each row the
// first touch alone counts, also where that was rolled back.
#pragma once

#include <bitset>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "workbench/database/Connection.h"
#include "workbench/database/RowBlock.h"
#include "workbench/database/RowHook.h"

namespace cordboard::workbench {

class RowLog final : private RowListener {
 public:
  // Whether the rows of a table are noted, asked when it is first touched. Those of temporary tables never are.
  using IsNoted = bool (*)(std::string_view stored);

  RowLog(Connection& connection, IsNoted isNoted);
  ~RowLog();
  RowLog(const RowLog&) = delete;
  RowLog& operator=(const RowLog&) = delete;

  // How many bytes of rows have been noted since the last Take.
  std::size_t size() const { return size_; }
  // What has been noted since the last Take, table by table.
  std::vector<RowBlock> Take();

 private:
  // Places of rows, mostly near each other.
  class Places {
   public:
    // Gives whether it is new.
    bool Add(std::int64_t place);

   private:
    static constexpr std::int64_t together = 512;
    std::unordered_map<std::int64_t, std::bitset<together>> places_;
  };
  struct Table {
    bool isNoted;
    Places touched = {};
    RowBlock block;
  };

  void BeforeChange(const RowTouch& touch) noexcept override;
  Table& Named(const char* stored);

  Connection& connection_;
  IsNoted isNoted_;
  std::map<std::string, Table, std::less<>> tables_;
  std::size_t size_ = 0;
};

}  // namespace cordboard::workbench
