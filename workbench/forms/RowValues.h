// The values that the rows of a statement give, in their order: the first column, and the second as description. A row
// without a value gives none.
#pragma once

#include <cstddef>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "script/Value.h"
#include "workbench/exchange/RuleStatements.h"

namespace cordboard::workbench {

// A page that has all values.
inline constexpr std::size_t wholePage = std::numeric_limits<std::size_t>::max();

// The statement that asks whether `list` gives a value, as an inner query, so that the database can use its indexes.
// Its parameters are those of `list`, and after them the value.
ListStatement Membership(const ListStatement& list);

class RowValues {
 public:
  // Runs no statement and does not fail; where it answers false, no more is wanted.
  using Take = std::function<bool(std::string_view value, std::string_view description)>;

  explicit RowValues(ListStatement statement) : all_(std::move(statement)) {}

  // Whether a value is one of them, by a look-up.
  bool Hold(const std::string& value);
  // Offers them in pages of this size and more, and need not offer what the table `unusedOf` marks as used. 1 says that
  // one value is wanted, wholePage that all are.
  void Offer(std::size_t page, const std::string& unusedOf, const Take& take);
  // Whether they are rows of a pool (workbench/exchange/PoolList.h).
  bool DrawFromPool() const;

 private:
  bool HoldAs(const Value& asked, const std::string& value) const;
  bool OfferFront(const std::string& unusedOf, const Take& take);
  bool OfferFromPool(std::size_t count, const std::string& unusedOf, const Take& take) const;
  void OfferAll(const Take& take) const;
  void OfferPages(std::size_t page, const Take& take) const;

  ListStatement all_;
  std::optional<ListStatement> one_;  // the question for one value, once somebody has asked
};

}  // namespace cordboard::workbench
