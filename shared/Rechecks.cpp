#include "shared/Rechecks.h"

#include <algorithm>

#include "script/Conversions.h"
#include "script/Text.h"

namespace cordboard {

namespace {

bool PutBack(const Reporter& fail, const std::string& parameter, const Value& kept) {
  return scSetParamValue(parameter, kept) || fail(SetFailed, parameter);
}

// `listName` is what the message of a list that cannot be read names.
bool PutBackIfListHas(const Reporter& fail, const std::string& parameter, const Value& kept,
                      const std::string& listName) {
  List list;
  if (!scGetValidValues(parameter, list)) return fail(ListNotBuilt, listName);
  return !IsValueInList(kept, list) || PutBack(fail, parameter, kept);
}

// Puts a text back where the statement, made from it, gives the location on the form. One that the statement does not
// find fails the call.
bool PutBackIfAtLocation(const Reporter& fail, const std::string& parameter, const std::string& locationParameter,
                         std::string (*statement)(const std::string& kept)) {
  const std::string location = ToText(scGetParamValue(locationParameter));
  const std::string kept = ToText(scGetParamValue(parameter));
  if (!ResetForRecheck(fail, parameter)) return false;
  if (kept.empty()) return true;
  RowSet rows;
  if (!scRunQuery(statement(kept), rows)) return fail(LocationsNotRead, kept);
  return !Equals(rows[0][0], location) || PutBack(fail, parameter, kept);
}

}  // namespace

bool IsValueInList(const Value& value, const List& list) {
  return std::any_of(list.begin(), list.end(), [&](const Value& element) { return Equals(element, value); });
}

bool AlwaysTrue(const Action&) { return true; }

bool ResetLOCATION(const Action&) { return scResetParam("LOCATION"); }

bool ResetForRecheck(const Reporter& fail, const std::string& parameter) {
  return scResetParam(parameter) || fail(ResetFailed, parameter);
}

bool PutBackIfListed(const Reporter& fail, const std::string& parameter, const Value& kept) {
  return PutBackIfListHas(fail, parameter, kept, parameter);
}

bool Revalidate(const Reporter& fail, const std::string& parameter, const Value& kept) {
  return ResetForRecheck(fail, parameter) && PutBackIfListed(fail, parameter, kept);
}

bool StatCheck_RecheckValue(const std::string& CmdName, const std::string& parameter) {
  const Reporter fail("StatCheck: " + CmdName);
  const Value kept = scGetParamValue(parameter);
  return ResetForRecheck(fail, parameter) && PutBackIfListHas(fail, parameter, kept, CmdName);
}

bool StatCheck_LIM(const Action& action) {
  return PutBackIfAtLocation(Reporter("StatCheck: " + action.CmdName), "LIM", "LOCATION", [](const std::string& LIM) {
    return Sql("SELECT Location FROM LIMs ", NL, " WHERE LIM = '", LIM, "'", NL);
  });
}

// The statement carries one closing bracket more than it opens.
bool StatCheck_EQU(const std::string& locationParameter) {
  return PutBackIfAtLocation(
      Reporter("StatCheck: " + locationParameter), "EQU", locationParameter, [](const std::string& EQU) {
        return Sql("SELECT LIMs.Location FROM Locations ", NL, " INNER JOIN (Boards ", NL,
                   " INNER JOIN Equipment ON (Boards.Slot = Equipment.Slot) ", NL,
                   " AND (Boards.Magazine = Equipment.Magazine) ", NL, " AND (Boards.LIM = Equipment.LIM)) ", NL,
                   " INNER JOIN LIMs ON Boards.LIM = LIMs.LIM) ", NL, " ON Locations.Location = LIMs.Location ", NL,
                   " WHERE Equipment.EQU = '", EQU, "'", NL);
      });
}

// A position is read from its right end: LIM, any separator, one digit of the magazine, any separator, two of the slot.
// A position without a board stays reset.
bool StatCheck_BPOS(const std::string& locationParameter) {
  const Reporter fail("StatCheck: " + locationParameter);
  const std::string location = ToText(scGetParamValue(locationParameter));
  const Value BPOS = scGetParamValue("BPOS");
  if (!ResetForRecheck(fail, "BPOS")) return false;
  if (BPOS.IsEmpty()) return true;
  const std::string position = ToText(BPOS);
  const auto length = static_cast<std::ptrdiff_t>(Length(position));
  const std::string LIM = Left(position, length - 5);
  const std::string magazine = Middle(position, length - 3, 1);
  const std::string slot = Right(position, 2);
  RowSet rows;
  const bool read = scRunQuery(Sql("SELECT LIMs.Location FROM Boards ", NL, " INNER JOIN LIMs ON Boards.LIM = LIMs.LIM",
                                   NL, " WHERE Boards.LIM = '", LIM, "'", NL, " AND Boards.Magazine = '", magazine, "'",
                                   NL, " AND Boards.Slot = '", slot, "'"),
                               rows);
  if (!read) return fail(StatementFailed);
  const bool fits = !rows.IsEmpty() && Equals(rows[0][0], location);
  return !fits || PutBack(fail, "BPOS", BPOS);
}

}  // namespace cordboard
