// NANSI: the number series. The host keeps the rows; this command checks, asks the host, and releases.

#include <string_view>

#include "script/Conversions.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/SplitRange.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

bool ListNUMTYP(const Action& action) { return scSQLSelectValuesAndDesc() || DescribedListRefused(action); }

// Nothing sets these permissions back to True, and the answer is False in every case.
bool CheckNUMTYP(const Action&) {
  if (IsTrue(scIsValueEqual("CP"))) {
    scSetCanHaveParamRange("NUMSE", false);
    scSetCanHaveParamMultiple("NUMSE", false);
  } else if (IsTrue(scIsValueEqual("AI"))) {
    scSetCanHaveParamRange("NUMSE", false);
  }
  return false;
}

// The rule of length of a number type, on both ends of the range; of "AI" on the first alone.
bool LengthSuitsType(const Reporter& fail, const Value& NUMTYP, const std::string& from, const std::string& to) {
  if (Equals(NUMTYP, "EC")) {
    const bool fits = Length(from) <= 3 && Length(to) <= 3;
    return fits || fail(NumberTooLong, "3", NUMTYP);
  }
  for (const char* type : {"DE", "DG", "DN", "EX", "MA"}) {
    if (!Equals(NUMTYP, type)) continue;
    const bool fits = Length(from) >= 2 && (to.empty() || Length(to) >= 2);
    return fits || fail(NumberTooShort, "2", NUMTYP);
  }
  return !Equals(NUMTYP, "AI") || Length(from) <= 1 || fail(NumberTooLong, "1", NUMTYP);
}

bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  const Value NUMTYP = scGetParamValue("NUMTYP");
  const Value NUMSE = scGetParamValue("NUMSE");
  std::string from;
  std::string to;
  SplitRange(NUMSE, from, to);
  if (!LengthSuitsType(fail, NUMTYP, from, to)) return false;

  Value code;
  const bool initiated = scNANSIinitiate(NUMSE, NUMTYP, code);
  if (!initiated) scErrorMessage(0, 2, 2, fail.context(), code);
  return initiated;
}

// Frees every position that none of the five tables names, not only those of the deleted number. ITNUI is asked twice.
bool ReleaseEquipment() {
  return scRunQuery(Sql(" UPDATE EQUIPMENT SET USED = FALSE", NL, " WHERE EQU NOT IN (SELECT EQU FROM KSEXI) AND", NL,
                        " EQU NOT IN (SELECT EQU FROM EXTEIDIR) AND", NL, " EQU NOT IN (SELECT EQU FROM EXTEIAUX) AND",
                        NL, " EQU NOT IN (SELECT EQU FROM ITNUI) AND", NL, " EQU NOT IN (SELECT EQU FROM CBELI) AND",
                        NL, " EQU NOT IN (SELECT EQU FROM ITNUI)"));
}

// No envelope: a step that fails leaves what the steps before it have done.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  RowSet rows;
  if (!scRunQuery(Sql("SELECT NUMSE, NUMTYP FROM NANSI ", NL, " WHERE CmdId = ", action.CmdId), rows))
    return fail(RecordNotRead, action.CmdName);
  const Value NUMSE = rows[0][0];
  const Value NUMTYP = rows[1][0];
  if (NUMSE.IsEmptyText()) return fail(ColumnHasNoValue, "NUMSE");
  if (!scRunQuery(Sql("DELETE * FROM NANSI", NL, "WHERE CmdId = ", action.CmdId)))
    return fail(RecordNotDeleted, action.CmdName, action.CmdId);
  if (!scNANSIremoveFromBlockedRange(NUMSE, NUMTYP)) return fail(BlockedRangeNotRemoved, NUMSE);
  return ReleaseEquipment() || fail(StatementFailed);
}

// The lines come in the order that DISTINCT gives.
bool Generate(const Action& action) {
  const auto line = [](const LineRow& row) -> std::optional<std::string> {
    const Value Start = row[0], End = row[1];
    const Value& Numtyp = row.Stored(2);
    if (End.IsNull() && Numtyp.IsNull()) {
      Debug("  Ignoring this value, as it is not a valid NANSI range");
      return std::nullopt;
    }
    const bool range = !End.IsNull() && !Equals(End, Start);
    const std::string NUMSE = range ? Text(Start, "&&", End) : Text(Start);
    return Text("NANSI:NUMTYP=", Numtyp, ",NUMSE=", NUMSE, ";");
  };
  return GenerateLines(action, "SELECT DISTINCT Start, End, Numtyp From NANSIBlockedRange", line);
}

}  // namespace

extern const Module NANSI{
    .SetInfo = Add,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{"NUMTYP", ListNUMTYP}},
    .StatCheck = {{"NUMTYP", CheckNUMTYP}},
};

}  // namespace cordboard
