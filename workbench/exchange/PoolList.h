// The first rows of a list that draws from a pool: a table in which the plant stands and that marks what is taken, with
// kinds in its description (workbench/database/Schema.h). A rule's statement that joins the pool to tables of the
// plant, asks for nothing but the mark and what makes the kinds, and orders by the pool's order either gives all rows
// of one kind with one mark or none of them. So its first n rows are among the first n of those kinds that lead it: the
// n kinds whose own first rows come first in it. The statement itself is asked for both, before a pool that holds these
// rows alone.
//
// What this costs depends on how many kinds there are (types of boards, positions on one, locations) and on n, and not
// on how many positions there are, taken or not, nor on what lies in front of the first that the statement gives: of a
// kind that it does not give one row is looked at, of one that it gives n. Where only what is free is wanted, the rows
// that lie in front are tried first: mostly they are enough, at a tenth of the cost. Where one is wanted, the first of
// them is looked up in the list, at half of that.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "workbench/exchange/RuleStatements.h"

namespace cordboard::workbench {

// Whether the list is of this shape.
bool DrawsFromPool(const ListStatement& list);

// The first `count` rows of the list; of the table `unusedOf`, where that is its pool, those alone that are not taken.
// Nothing where the statement is not of this shape.
std::optional<RowSet> FirstOfPool(const ListStatement& list, std::size_t count, std::string_view unusedOf);

// The first row of the table `unusedOf` that is not taken, where that is the pool: if the list gives any row that is
// not taken, and this is one of them, it is the first. Empty where there is none.
std::string FrontOfPool(const ListStatement& list, std::string_view unusedOf);

}  // namespace cordboard::workbench
