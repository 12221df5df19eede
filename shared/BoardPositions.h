// Board positions (BPOS), "{LIM}-{Magazine}-{Slot}" with the LIM in three digits: the list of those that commands with
// a board of one type offer.
#pragma once

#include <string>

#include "script/Action.h"
#include "script/List.h"
#include "script/Report.h"
#include "script/Value.h"

namespace cordboard {

// LIM, Magazine and Slot of the boards of a type, in order: all, or those in the LOCATION on the form. A statement that
// fails is reported.
bool ReadBoards(const Reporter& fail, const std::string& BoardID, RowSet& boards);

// The text of a position; Empty for a LIM that is not written in one to three characters.
Value BoardPosition(const Value& LIM, const Value& Magazine, const Value& Slot);

// Offers the positions, and takes out those in use, which the statement gives. A push that is refused is not reported;
// a position that cannot be taken out ends the list (60015).
bool OfferBoardPositions(const Reporter& fail, const List& positions, const std::string& inUse);

// The whole list, in the context of the command's name and "GetValidValForParam: ". Without a board of the type there
// is no list and the answer is True.
bool ListBoardPositions(const Action& action, const std::string& BoardID, const std::string& inUse);

}  // namespace cordboard
