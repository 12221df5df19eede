#include "workbench/forms/RowValues.h"

#include <algorithm>
#include <vector>

#include "script/Conversions.h"
#include "workbench/database/Connection.h"
#include "workbench/exchange/PoolList.h"

namespace cordboard::workbench {

namespace {

constexpr std::size_t smallestPage = 16;

// Gives whether `take` wants more than the rows from `row` on.
bool OfferEach(const RowSet& rows, const RowValues::Take& take, std::size_t row = 0) {
  for (; row < rows.RowCount(); ++row) {
    if (rows[0][row].IsNull() || rows[0][row].IsEmptyText()) continue;
    if (!take(Joined(rows[0][row]), rows.ColumnCount() > 1 ? Joined(rows[1][row]) : "")) return false;
  }
  return true;
}

}  // namespace

ListStatement Membership(const ListStatement& list) {
  std::string columns = "v";
  for (int i = 1; i < list.database->PrepareRule(list.sql); ++i) columns += ", c" + std::to_string(i);
  // Sorted or grouped rows would all have to be made.
  const std::string rows = list.sql.substr(0, list.order);
  // Few rows have the value: an index of it is better than one of what else they have in common.
  return {list.database,
          "WITH list(" + columns + ") AS (" + rows + ") SELECT v FROM list WHERE likelihood(v = ?, 0.0000001) LIMIT 1",
          list.parameters};
}

// A column without a type keeps texts and numbers apart. The two questions are not one with IN, for which the database
// would make a table each time.
bool RowValues::Hold(const std::string& value) {
  if (!one_) one_ = Membership(all_);
  if (HoldAs(value, value)) return true;
  return IsNumeric(value) && Joined(ToNumber(value)) == value && HoldAs(ToNumber(value), value);
}

// Asked for as a text or as a number. A number column finds '1' by '01' too, so that what was found is looked at once
// more.
bool RowValues::HoldAs(const Value& asked, const std::string& value) const {
  std::vector<Value> parameters = one_->parameters;
  parameters.push_back(asked);
  const RowSet found = one_->database->RunRule(one_->sql, parameters);
  return !found.IsEmpty() && Joined(found[0][0]) == value;
}

void RowValues::Offer(std::size_t page, const std::string& unusedOf, const Take& take) {
  const bool isOneWanted = page == 1;
  if (isOneWanted && OfferFront(unusedOf, take)) return;
  if (page == wholePage) return OfferAll(take);
  if (!OfferFromPool(page, unusedOf, take)) OfferPages(std::max(page, smallestPage), take);
}

bool RowValues::DrawFromPool() const { return DrawsFromPool(all_); }

// Of a list of which one value is wanted that is free, mostly the first that is free is this one: a look-up tells.
// Gives whether `take` wants no more.
bool RowValues::OfferFront(const std::string& unusedOf, const Take& take) {
  const std::string front = FrontOfPool(all_, unusedOf);
  return !front.empty() && Hold(front) && !take(front, "");
}

// Gives false where the list draws from no pool.
bool RowValues::OfferFromPool(std::size_t count, const std::string& unusedOf, const Take& take) const {
  for (std::size_t offered = 0;; offered = count, count *= 2) {
    const std::optional<RowSet> rows = FirstOfPool(all_, count, unusedOf);
    if (!rows) return false;
    if (!OfferEach(*rows, take, offered) || rows->RowCount() < count) return true;
  }
}

void RowValues::OfferAll(const Take& take) const { all_.database->ReadValues(all_.sql, all_.parameters, take); }

// The pages grow, so that the first rows of many cost little.
void RowValues::OfferPages(std::size_t page, const Take& take) const {
  for (std::size_t offset = 0;; offset += page, page *= 2) {
    std::vector<Value> parameters = all_.parameters;
    parameters.emplace_back(page);
    parameters.emplace_back(offset);
    const RowSet rows = all_.database->RunRule(all_.sql + " LIMIT ? OFFSET ?", parameters);
    if (!OfferEach(rows, take) || rows.RowCount() < page) return;
  }
}

}  // namespace cordboard::workbench
