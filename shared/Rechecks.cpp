#include "shared/Rechecks.h"

#include "script/Conversions.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/Helpers.h"

namespace cordboard {

namespace {

bool Reset(const std::string& context, const std::string& parameter) {
  return OrReport(scResetParam(parameter), context, Message::ResetFailed, parameter);
}

bool PutBack(const std::string& context, const std::string& parameter, const Value& kept) {
  return OrReport(scSetParamValue(parameter, kept), context, Message::SetFailed, parameter);
}

// `listName` is what the message of a list that cannot be had names.
bool PutBackIfListed(const std::string& context, const std::string& parameter, const Value& kept,
                     const std::string& listName) {
  if (!Reset(context, parameter)) return false;
  List list;
  if (!OrReport(scGetValidValues(parameter, list), context, Message::ListNotBuilt, listName)) return false;
  return !IsValueInList(kept, list) || PutBack(context, parameter, kept);
}

// Puts a text back where the statement, made from it, gives the location on the form. One that the statement does not
// find fails the call.
bool PutBackIfAtLocation(const std::string& context, const std::string& parameter, const std::string& locationParameter,
                         std::string (*statement)(const std::string& kept)) {
  const std::string location = ToText(scGetParamValue(locationParameter));
  const std::string kept = ToText(scGetParamValue(parameter));
  if (!Reset(context, parameter)) return false;
  if (kept.empty()) return true;
  RowSet rows;
  if (!OrReport(scRunQuery(statement(kept), rows), context, Message::LocationsNotRead, kept)) return false;
  return !Equals(rows[0][0], location) || PutBack(context, parameter, kept);
}

}  // namespace

bool Revalidate(const std::string& context, const std::string& parameter, const Value& kept) {
  return PutBackIfListed(context, parameter, kept, parameter);
}

bool StatCheck_RecheckValue(const std::string& CmdName, const std::string& parameter) {
  const Value kept = scGetParamValue(parameter);
  return PutBackIfListed("StatCheck: " + CmdName, parameter, kept, CmdName);
}

bool StatCheck_LIM(const std::string& CmdName) {
  return PutBackIfAtLocation("StatCheck: " + CmdName, "LIM", "LOCATION", [](const std::string& LIM) {
    return Sql("SELECT Location FROM LIMs ", NL, " WHERE LIM = '", LIM, "'", NL);
  });
}

// The statement carries one closing bracket more than it opens.
bool StatCheck_EQU(const std::string& locationParameter) {
  return PutBackIfAtLocation("StatCheck: " + locationParameter, "EQU", locationParameter, [](const std::string& EQU) {
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
  const std::string context = "StatCheck: " + locationParameter;
  const std::string location = ToText(scGetParamValue(locationParameter));
  const Value BPOS = scGetParamValue("BPOS");
  if (!Reset(context, "BPOS")) return false;
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
  if (!OrReport(read, context, Message::StatementFailed)) return false;
  const bool fits = !rows.IsEmpty() && Equals(rows[0][0], location);
  return !fits || PutBack(context, "BPOS", BPOS);
}

}  // namespace cordboard
