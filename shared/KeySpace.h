// The keys of a key extension. A key of one DIR is taken if it stands in KSFKC, KSANI or KSMDI: the three tables share
// it. Which keys there are, and which carry a preset function, depends on the instrument.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "script/Action.h"
#include "script/Generate.h"
#include "script/List.h"
#include "script/Value.h"

namespace cordboard {

// The definition that has the keys of an instrument: one more than its leading digits say. Without a value that is 1.
double KeyDefinition(const Value& ITYPE);

// The row of the instrument of an extension: none for one that is not in KSEXI. Gives the statement's answer.
bool SelectITYPE(const Value& DIR, RowSet& rows);

// Takes the keys of one DIR out of the list of KEY: those that `keysWithFunction` finds in KSFKC, then those of KSANI
// and of KSMDI. That none is left is reported, and answers False like a step that fails.
bool SubtractTakenKeys(const Action& action, const Value& DIR, const std::string& keysWithFunction);

// The extensions of a list that are given: those that are neither empty nor null. Fails for a list without bounds.
std::vector<Value> Given(const List& DIRs);

// Inserts the lines of a command of keys: reads for each row the instrument of its extension, which stands in the
// column `DIR`, and has `line` make the text. An instrument that cannot be read ends the lines with False; for an
// extension that is not in KSEXI it stays as the line before had it. Gives the answer of the last insert, `flag` where
// there was none.
using KeyLine = std::function<std::string(const LineRow& row, const Value& ITYPE)>;
bool InsertKeyLines(const Reporter& fail, const Action& action, const RowSet& rows, std::size_t DIR, bool flag,
                    const KeyLine& line);

// The composite key text "{DIR}-{KEY}".
std::string ComposeDIRK(const Value& DIR, const Value& KEY);
// Reads one: DIR is all before the first "-", KEY what follows it. Without a "-" all of it is DIR.
void SplitDIRK(const Value& DIRK, std::string& DIR, std::string& KEY);

// Some keys of an instrument carry a preset function, which the exchange must release before it accepts another. The
// line that releases the key, with a line feed after it, to stand in front of the line that uses the key; nothing for
// a key that is free to use.
std::string ReleaseOfFixedKey(const Value& ITYPE, const Value& DIR, const Value& KEY);

}  // namespace cordboard
