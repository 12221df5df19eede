// ROEQI: the lines of the routes. A record binds an equipment position and a trunk line to a route; the protocol of the
// route decides on which boards the position may lie.

#include <iterator>

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/Capacity.h"
#include "shared/Equipment.h"
#include "shared/Record.h"
#include "shared/Routes.h"
#include "shared/Row.h"
#include "shared/Usage.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// Empty where no route is given; a null counts as one. The statement's answer is not tested: a route that is not found
// fails the call.
Value ProtocolOnForm() {
  const Value ROU = scGetParamValue("ROU");
  if (ROU.IsEmptyOrEmptyText()) return Value();
  RowSet rows;
  scRunQuery(Sql(" SELECT PROTOCOL FROM ROCAI WHERE ROU = '", ROU, "'"), rows);
  return Trim(rows[0][0]);
}

// The boards of any protocol, where there is none or one that is not known here.
std::string OnBoards(const std::string& PROTOCOL) {
  const auto only = [](const char* BoardID) { return Sql(" AND  Boards.BoardID = '", BoardID, "'", NL); };
  if (PROTOCOL == "ISDN") return only("57");
  if (PROTOCOL == "DPNSS" || PROTOCOL == "DASS") return only("48");
  if (PROTOCOL == "CAS") return only("27");
  return Sql(" AND ( (Boards.BoardID = '57') OR (Boards.BoardID ='48') OR (Boards.BoardID = '27') OR ",
             "(Boards.BoardID = '100'))", NL);
}

// The individuals 00 and 16 carry signals.
bool ListEQU(const Action& action) {
  const std::string boards = OnBoards(Joined(ProtocolOnForm()));
  return CollectList(action, Sql(EquipmentInLIMs,
                                 "WHERE (Equipment.Used = False) AND  Not ((Equipment.EQU like  "
                                 "'%-00') OR (Equipment.EQU like  '%-16' )) ",
                                 NL, boards, EquipmentOrder()));
}

// The free lines of all LIMs that have a board for them; those with board 100 alone do not count. Each row but the last
// is followed by " OR ", even one whose LIM is blank and writes nothing itself. Without any row the statement that
// reads the LIMs is the answer, and the LIMs are offered as lines.
std::string FreeLinesOfAllLIMs() {
  const char* const selectLIMs =
      "SELECT DISTINCT (LIM) FROM BOARDS WHERE BOARDID = '27' OR BOARDID = '48' OR BOARDID = '57'  ";
  RowSet rows;
  scRunQuery(selectLIMs, rows);
  if (rows.IsEmpty()) return selectLIMs;
  std::string conditions;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const Value& LIM = rows[0][row];
    if (!LIM.IsBlank()) conditions += Sql("  LIM = '", LIM, "' ");
    if (row + 1 < rows.RowCount()) conditions += " OR ";
  }
  return Sql("SELECT TRU FROM TRKLINE where USED = False AND (", conditions, ")");
}

// A position that is not known has the LIM -1, and so no line.
bool ListTRU(const Action& action) {
  const Value EQU = scGetParamValue("EQU");
  return CollectList(
      action, EQU.IsBlank() ? FreeLinesOfAllLIMs()
                            : Sql("SELECT TRU FROM TRKLINE WHERE USED = FALSE AND LIM = '", GetLIMFromEQU(EQU), "'"));
}

bool ResetInCheck(const char* name) { return scResetParam(name) || Reporter("StatCheck")(ResetFailed, name); }

bool CheckROU(const Action&) { return ResetInCheck("EQU"); }

// A line stays while it is on the LIM of the position, which is 0 without a position. The line's LIM is its first
// character alone: a LIM of two digits never matches, and a character that is no digit fails the call.
bool CheckEQU(const Action&) {
  const Value TRU = scGetParamValue("TRU");
  const Value EQU = scGetParamValue("EQU");
  const int LIM = EQU.IsEmptyOrEmptyText() ? 0 : GetLIMFromEQU(EQU);
  const bool stays = !TRU.IsBlank() && ToInt16(Left(ToText(TRU), 1)) == LIM;
  return stays || ResetInCheck("TRU");
}

// Line and position go in pairs, by their place. A record that is refused ends the add; a mark that is refused is
// reported, here a second time, and the add goes on, but is never committed.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  action.ParamList.RequireBounds();  // before the transaction
  return InTransactionLeftOpen(fail, [&] {
    List lines;
    if (!scGetValueArray("TRU", lines)) return fail(ListNotBuilt, "TRU");
    List positions;
    if (!scGetValueArray("EQU", positions)) return fail(ListNotBuilt, "EQU");
    bool marked = true;
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const List record = Record(action.ParamList, {{"EQU", positions, i}, {"TRU", lines, i}});
      if (!scSQLInsert(action.CmdName, action.ParamList, record)) return fail(InsertFailed, action.CmdName);
      if (!SetEquipmentUsed(positions[i], true)) {
        marked = fail(ListNotBuilt, "EQU");
      } else if (!SetTruUsed(lines[i], true)) {
        marked = fail(ListNotBuilt, "TRU");
      }
    }
    return marked;
  });
}

// The value that is left out marks nothing but the empty text. A mark that is refused ends the marks.
bool MoveMarks(const RowSet& old, const Value& TRU, const Value& EQU) {
  return SetTruUsed(old[1][0], false) && SetEquipmentUsed(old[2][0], false) && SetTruUsed(TRU, true) &&
         SetEquipmentUsed(EQU, true);
}

// Every edit writes all three columns, whatever has changed. A value that is left out keeps the old one in the row, and
// yet frees it: an edit that gives neither line nor position leaves both in the record and marked as free. Whether the
// marks could be moved does not count.
bool Edit(const Action& action) {
  constexpr const char* columns[] = {"ROU", "TRU", "EQU"};
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet old;
    scRunQuery(Sql("SELECT ROU, TRU, EQU FROM ROEQI WHERE CmdId = ", action.CmdId), old);
    Value given[std::size(columns)];
    for (std::size_t i = 0; i < std::size(columns); ++i) {
      const Value value = scGetParamValue(columns[i]);
      given[i] = value.IsBlank() ? Value("") : value;
      if (!UpdateColumnOrNull("ROEQI", action.CmdId, columns[i], OrStored(value, old, i)))
        return fail(ColumnNotWritten, columns[i]);
    }
    MoveMarks(old, given[1], given[2]);
    return true;
  });
}

// A record that could not be read, or is gone, is reported (the first in the words of another command) and stops
// nothing: what is freed is empty then. The two messages about position and line tell that the step before has failed:
// after a delete that is refused both of them come, after a position that could not be freed the second.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT EQU,TRU FROM ROEQI ", NL, " WHERE CmdID = ", action.CmdId), rows)) {
      fail(ValueNotFound, "DIR, EQU", "EXTEIDIR");
    } else if (rows.IsEmpty()) {
      fail(RecordNotFound);
    }
    const Value EQU = rows.IsEmpty() ? Value() : rows[0][0];
    const Value TRU = rows.IsEmpty() ? Value() : rows[1][0];
    const bool freed = DeleteRow("ROEQI", action.CmdId) ? SetEquipmentUsed(EQU, false) : fail(ValueNotFound, " EQU");
    return freed ? SetTruUsed(TRU, false) : fail(ValueNotFound, " TRU");
  });
}

// CNTRL is read and has no place in the line.
bool Generate(const Action& action) {
  const auto line = [](const LineRow& row) {
    const auto [ROU, EQU, TRU] = row.Texts<3>();
    return Text("ROEQI:ROU=", ROU, ",EQU=", EQU, ",TRU=", TRU, ";");
  };
  return GenerateLines(action, "SELECT ROU, EQU, TRU, CNTRL FROM ROEQI", line);
}

}  // namespace

extern const Module ROEQI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{"ROU", GetDefinedRoutes}, {"EQU", ListEQU}, {"TRU", ListTRU}, {"CNTRL", GetValuesAndDescription}},
    .StatCheck = {{"ROU", CheckROU}, {"EQU", CheckEQU}},
};

}  // namespace cordboard
