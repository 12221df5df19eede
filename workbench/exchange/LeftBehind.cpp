#include "workbench/exchange/LeftBehind.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "script/Conversions.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

using Kind = LeftBehind::Kind;

// The values that stand in the home of a thing, of rows of which a condition is true.
std::string Values(const Home& home, const std::string& condition) {
  return "(SELECT " + home.value + " FROM [" + home.table + "] WHERE " + home.value + " IS NOT NULL AND (" + condition +
         "))";
}

std::string Filled(const Home& home) { return home.where.empty() ? "TRUE" : home.where; }

std::string Column(const Reference& reference) { return "[" + reference.column + "]"; }

std::string HasValue(const Reference& reference) {
  return Column(reference) + " IS NOT NULL AND " + Column(reference) + " <> ''";
}

// Everything that stands in the columns that take a thing, but for those in which it may stand twice.
std::string TakenAlone(const Thing& thing) {
  return Separated(thing.references, "", [](const Reference* each) -> std::string {
    if (!each->takes || each->shares) return "";
    return " UNION ALL SELECT " + Column(*each) + " FROM " + each->record->Rows() + " WHERE " + HasValue(*each);
  });
}

// Whether the record is there and has the value.
bool Has(Exchange& exchange, const Holder& record, const std::string& column, const std::string& value) {
  const KeyValues wanted = {{"CmdId", std::to_string(record.CmdId)}, {column, value}};
  return !RecordsWith(exchange, *record.record, wanted, 1).empty();
}

class Search {
 public:
  explicit Search(Exchange& exchange) : exchange_(exchange) {}

  void Look(const Thing& thing) {
    for (const Reference* reference : thing.references) {
      if (thing.home) LookForMissing(thing, *reference);
      if (thing.home && !thing.home->used.empty() && reference->takes && reference->marks)
        LookForUnmarked(thing, *reference);
    }
    if (!thing.alsoTaken.empty()) LookForUnmarkedBesides(thing);
    LookForShared(thing);
    if (thing.home && !thing.home->used.empty()) LookForUnheld(thing);
  }

  std::vector<LeftBehind>& found() { return found_; }

 private:
  // The records of a reference for whose value a condition is true.
  std::vector<LeftBehind> RecordsWhere(Kind kind, const Thing& thing, const Reference& reference,
                                       const std::string& condition) {
    const RecordKind& record = *reference.record;
    const RowSet rows = exchange_.Dynamic().Run("SELECT " + HolderColumns(record) + ", " + Column(reference) +
                                                " FROM " + record.Rows() + " WHERE " + HasValue(reference) + " AND " +
                                                condition + " ORDER BY [CmdId]");
    std::vector<LeftBehind> found;
    for (std::size_t row = 0; row < rows.RowCount(); ++row)
      found.push_back({.kind = kind,
                       .thing = &thing,
                       .value = Joined(rows[record.key.size() + 1][row]),
                       .reference = &reference,
                       .record = HolderAt(rows, row, record)});
    return found;
  }

  void Add(std::vector<LeftBehind> found) { std::ranges::move(found, std::back_inserter(found_)); }

  void LookForMissing(const Thing& thing, const Reference& reference) {
    const std::string notThere = Column(reference) + " NOT IN " + Values(*thing.home, "TRUE");
    Add(RecordsWhere(Kind::Missing, thing, reference, notThere));
    if (thing.home->where.empty()) return;
    const std::string isBlank = Column(reference) + " IN " + Values(*thing.home, "TRUE") + " AND " + Column(reference) +
                                " NOT IN " + Values(*thing.home, Filled(*thing.home));
    Add(RecordsWhere(Kind::Blank, thing, reference, isBlank));
  }

  void LookForUnmarked(const Thing& thing, const Reference& reference) {
    const std::string isFree =
        Column(reference) + " IN " + Values(*thing.home, "(" + thing.home->used + ") IS NOT TRUE");
    Add(RecordsWhere(Kind::Unmarked, thing, reference, isFree));
  }

  void LookForUnmarkedBesides(const Thing& thing) {
    AddRows(Kind::Unmarked, thing,
            "(" + thing.home->used + ") IS NOT TRUE AND " + thing.home->value + " IN (" + thing.alsoTaken + ")");
  }

  // Of several that have the same the one that was there first has it, and each other is found.
  void LookForShared(const Thing& thing) {
    const std::string taken = TakenAlone(thing);
    if (taken.empty()) return;
    const std::string twice =
        "(SELECT [value] FROM (SELECT NULL AS [value]" + taken + ") GROUP BY [value] HAVING COUNT([value]) > 1)";
    std::vector<LeftBehind> takers;
    for (const Reference* reference : thing.references) {
      if (reference->takes && !reference->shares)
        std::ranges::move(RecordsWhere(Kind::Shared, thing, *reference, Column(*reference) + " IN " + twice),
                          std::back_inserter(takers));
    }
    std::ranges::stable_sort(takers, {}, [](const LeftBehind& each) { return each.record->CmdId; });
    std::map<std::string, Holder> first;
    for (LeftBehind& taker : takers) {
      const auto [owner, isFirst] = first.emplace(taker.value, *taker.record);
      if (isFirst) continue;
      taker.other = owner->second;
      found_.push_back(std::move(taker));
    }
  }

  void LookForUnheld(const Thing& thing) {
    std::string condition = "(" + thing.home->used + ")";
    const auto except = [&](const std::string& values) {
      condition += " AND " + thing.home->value + " NOT IN (" + values + ")";
    };
    for (const Reference* reference : thing.references) {
      if (reference->takes)
        except("SELECT " + Column(*reference) + " FROM " + reference->record->Rows() + " WHERE " +
               HasValue(*reference));
    }
    if (!thing.alsoTaken.empty()) except(thing.alsoTaken);
    AddRows(Kind::Unheld, thing, condition);
  }

  void AddRows(Kind kind, const Thing& thing, const std::string& condition) {
    const RowSet rows = exchange_.Dynamic().Run("SELECT * FROM " + Values(*thing.home, condition) + " ORDER BY 1");
    for (std::size_t row = 0; row < rows.RowCount(); ++row)
      found_.push_back({.kind = kind, .thing = &thing, .value = Joined(rows[0][row])});
  }

  Exchange& exchange_;
  std::vector<LeftBehind> found_;
};

}  // namespace

std::string LeftBehind::Identity() const {
  std::string identity = std::to_string(static_cast<int>(kind)) + ' ' + thing->name + ' ' + value;
  if (record) identity += ' ' + record->record->table + ' ' + reference->column + ' ' + std::to_string(record->CmdId);
  return identity;
}

std::vector<LeftBehind> FindLeftBehind(Exchange& exchange) {
  Search search(exchange);
  for (const Thing& thing : ShippedReferences().things()) search.Look(thing);
  return std::move(search.found());
}

bool Stands(Exchange& exchange, const LeftBehind& found) {
  if (found.kind == Kind::Unheld) {
    return StandingOf(exchange, *found.thing, found.value).isUsed &&
           WhoTakes(exchange, *found.thing, found.value, 1).empty();
  }
  if (!found.record) return !StandingOf(exchange, *found.thing, found.value).isUsed;
  if (!Has(exchange, *found.record, found.reference->column, found.value)) return false;
  if (found.kind == Kind::Shared) {
    return std::ranges::any_of(found.thing->references, [&](const Reference* each) {
      return each->takes && each->record == found.other->record &&
             Has(exchange, *found.other, each->column, found.value);
    });
  }
  const Standing standing = StandingOf(exchange, *found.thing, found.value);
  return found.kind == Kind::Unmarked ? !standing.isUsed : !standing.isThere;
}

}  // namespace cordboard::workbench
