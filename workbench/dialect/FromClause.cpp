// The tables after FROM. The dialect joins two tables at a time and puts brackets around what is joined first:
//   A INNER JOIN ((B INNER JOIN C ON c1) INNER JOIN D ON c2) ON c3
// Inner joins mean the same in any order, so SQLite gets them without the brackets, and may choose its own order:
//   [A] JOIN [B] JOIN [C] JOIN [D] ON (c1) AND (c2) AND (c3)
#include <string>
#include <vector>

#include "workbench/dialect/Mapping.h"

namespace cordboard::workbench {
namespace {

class FromClause {
 public:
  explicit FromClause(Mapping& mapping) : mapping_(mapping) {}

  void Map() {
    Table();
    while (mapping_.Accept(Symbol::Inner)) {
      mapping_.Expect(Symbol::Join, "JOIN after INNER");
      mapping_.Put("JOIN");
      ++joins_.back();
      Table();
    }
    if (joins_.size() > 1) mapping_.Refuse("expected a closing bracket");
    if (joins_.back() > 0) mapping_.Refuse("expected the ON of a join");
    mapping_.Join(conditions_);
  }

 private:
  // A table after any number of opening brackets, with the closing brackets and the conditions after it.
  void Table() {
    while (mapping_.Accept(Symbol::Open)) {
      if (joins_.size() > deepestNesting) mapping_.Refuse("brackets are nested too deeply");
      joins_.push_back(0);
    }
    std::string_view name = mapping_.PutTable();
    if (mapping_.Accept(Symbol::As)) {
      mapping_.Put("AS");
      name = mapping_.PutName("another name for the table");
    }
    mapping_.query->tables.push_back(name);
    while (Close() || Condition()) continue;
  }

  bool Close() {
    if (!mapping_.At(Symbol::Close)) return false;
    if (joins_.size() > 1) {
      if (joins_.back() > 0) mapping_.Refuse("expected the ON of a join before this bracket");
      joins_.pop_back();
    } else if (joins_.back() > 0 && mapping_.AtNext(Symbol::On) && !dropped_) {
      // The one kindness of the dialect: a join may carry one closing bracket too many in front of its ON.
      dropped_ = true;
    } else {
      return false;
    }
    mapping_.tokens.Advance();
    return true;
  }

  // Maps a condition and takes it out of the text again: conditions stand after all tables.
  bool Condition() {
    if (!mapping_.At(Symbol::On)) return false;
    if (joins_.back() == 0) mapping_.Refuse("there is no join for this ON");
    --joins_.back();
    mapping_.tokens.Advance();
    std::string& sql = mapping_.result.sql;
    const std::size_t start = sql.size();
    MapExpression(mapping_);
    conditions_ += conditions_.empty() ? " ON (" : " AND (";
    conditions_.append(sql, start + 1);  // without the blank in front
    conditions_ += ')';
    sql.resize(start);
    return true;
  }

  Mapping& mapping_;
  std::vector<int> joins_{0};  // joins that wait for their ON: outside of brackets, and in each bracket that is open
  std::string conditions_;
  bool dropped_ = false;
};

}  // namespace

void MapFrom(Mapping& mapping) { FromClause(mapping).Map(); }

}  // namespace cordboard::workbench
