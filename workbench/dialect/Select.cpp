// Reading. The rows of a SELECT come in its own order, and where that leaves it open, in the order of their insertion:
// by their places in the tables, in the order in which it names these. Groups, and with them a DISTINCT, which is a
// grouping by all columns, come in the order of their first rows. A SELECT within another has no order of its own.
#include <string>
#include <string_view>
#include <utility>

#include "workbench/dialect/Mapping.h"

namespace cordboard::workbench {
namespace {

class Select {
 public:
  Select(Mapping& mapping, bool top) : mapping_(mapping), outer_(std::exchange(mapping.query, &query_)), top_(top) {}
  ~Select() { mapping_.query = outer_; }
  Select(const Select&) = delete;
  Select& operator=(const Select&) = delete;

  void Map() {
    mapping_.tokens.Advance();
    mapping_.Put("SELECT");
    const std::size_t afterSelect = mapping_.result.sql.size();
    const bool distinct = mapping_.Accept(Symbol::Distinct);
    if (distinct || !mapping_.Accept(Symbol::Star)) {
      Columns();
    } else {
      mapping_.Put("*");
    }
    mapping_.Expect(Symbol::From, "FROM");
    mapping_.Put("FROM");
    MapFrom(mapping_);
    MapWhere(mapping_);
    if (mapping_.At(Symbol::Group)) GroupBy();
    if (mapping_.Accept(Symbol::Having)) {
      mapping_.Put("HAVING");
      MapExpression(mapping_);
    }
    const bool groupsAll = distinct && top_ && !grouped_ && !query_.aggregate;
    if (distinct && !groupsAll) mapping_.result.sql.insert(afterSelect, " DISTINCT");
    const std::size_t order = mapping_.result.sql.size();
    const std::size_t literals = mapping_.result.parameters.size();
    if (groupsAll) GroupByAllColumns();
    OrderBy();
    if (top_ && mapping_.result.parameters.size() == literals) mapping_.result.order = order;
  }

 private:
  void Columns() {
    do {
      Column();
      ++columns_;
    } while (mapping_.AcceptComma());
  }

  void Column() {
    MapExpression(mapping_);
    if (!mapping_.Accept(Symbol::As)) return;
    mapping_.Put("AS");
    mapping_.PutName("a name for the column");
  }

  void GroupBy() {
    mapping_.tokens.Advance();
    mapping_.Expect(Symbol::By, "BY after GROUP");
    mapping_.Put("GROUP BY");
    grouped_ = true;
    do {
      Term();
    } while (mapping_.AcceptComma());
  }

  void GroupByAllColumns() {
    mapping_.Put("GROUP BY 1");
    for (int column = 2; column <= columns_; ++column) mapping_.Join(", " + std::to_string(column));
    grouped_ = true;
  }

  void OrderBy() {
    const bool byInsertion = top_ && (grouped_ || !query_.aggregate);
    const bool own = mapping_.Accept(Symbol::Order);
    if (own) mapping_.Expect(Symbol::By, "BY after ORDER");
    if (own || byInsertion) mapping_.Put("ORDER BY");
    if (own) {
      do {
        Term();
        if (mapping_.Accept(Symbol::Desc)) {
          mapping_.Put("DESC");
        } else {
          mapping_.Accept(Symbol::Asc);
        }
      } while (mapping_.AcceptComma());
    }
    if (!byInsertion) return;
    bool first = !own;
    for (const std::string_view table : query_.tables) {
      if (!std::exchange(first, false)) mapping_.Join(",");
      mapping_.Put(grouped_ ? "MIN([" : "[");
      mapping_.Join(table);
      mapping_.Join(grouped_ ? "].rowid)" : "].rowid");
    }
  }

  // A term of an order or a grouping: a literal would be a parameter, and neither order nor group anything.
  void Term() {
    if (!mapping_.At(Symbol::Name) && !mapping_.At(Symbol::Open)) mapping_.Refuse("expected a column");
    MapExpression(mapping_);
  }

  Mapping& mapping_;
  Query query_;
  Query* outer_;
  bool top_;
  bool grouped_ = false;
  int columns_ = 0;
};

}  // namespace

void MapSelect(Mapping& mapping) { Select(mapping, true).Map(); }

void MapSubSelect(Mapping& mapping) { Select(mapping, false).Map(); }

}  // namespace cordboard::workbench
