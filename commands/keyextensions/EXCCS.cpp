// EXCCS: categories: numbered bundles of the class strings TRAF, SERV, CDIV and ROC. The rows are a fixed set: an add
// fills the row of its CAT, a delete blanks it, and a row without SERV counts as a category that does not exist.
// CATTYP marks the special categories: "1" the minimum, "2" the default, "1&2" one that is both.

#include "commands/keyextensions/KSANI.h"
#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/MessageBox.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/ClassStrings.h"
#include "shared/Count.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists and checks.

// All rows, the blank ones too, in the order of the text: not the list of categories that extensions see.
bool ListCAT(const Action& action) {
  return scCollectValuesAndDesc("SELECT CAT, DESCRIPTION  FROM EXCCS ORDER BY CAT ", "dynamic") ||
         DescribedListRefused(action);
}

// Takes out the roles that other categories have. The value "1&2" is never taken out.
bool ListCATTYP(const Action& action) {
  const std::string parameter = action.Parameter();
  if (!GetValuesAndDescription(action)) return false;
  RowSet rows;
  const Reporter fail("GetValuesFor: " + parameter);
  if (!scRunQuery("SELECT CAT, CATTYP FROM EXCCS WHERE CATTYP <> ''", rows)) return fail(StatementFailed);
  if (rows.IsEmpty()) return true;
  const Value CAT = scGetParamValue("CAT");
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    if (!Differs(rows[0][row], CAT)) continue;
    const Value& CATTYP = rows[1][row];
    for (const char* role : {"1", "2"}) {
      const bool taken = Equals(CATTYP, role) || Equals(CATTYP, "1&2");
      if (taken && !scRemoveFromValidValues(parameter, role)) return fail(DescribedListNotBuilt, parameter);
    }
  }
  return true;
}

// Reports under the context of lists, though it is a check.
bool CheckCAT(const Action&) {
  return scResetParam("CATTYP") || Reporter("GetValidValForParam")(ResetFailed, "CATTYP");
}

// --- Add and edit.

const List columns{"TRAF", "SERV", "CDIV", "ROC", "CATTYP", "DESCRIPTION"};

// At most one category may have each role. "1&2" is not tested, and a category that has it stands in nobody's way.
bool RoleIsFree(const Reporter& fail, std::int32_t CmdId, const Value& CATTYP) {
  const bool minimum = Equals(CATTYP, "1");
  if (!minimum && !Equals(CATTYP, "2")) return true;
  Value count;
  if (!CheckedCount(fail, Sql("SELECT COUNT(*) FROM EXCCS WHERE (CATTYP =  '", CATTYP, "') AND NOT CMDID = ", CmdId),
                    count))
    return false;
  return !Differs(count, 0) || fail(CategoryRoleTaken, minimum ? "MIN" : "DEFAULT");
}

// No two categories may have the same four strings. The report of one that has them bears a context of its own.
bool StringsAreUnique(const Reporter& fail, const Value& CAT, const List& values) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT COUNT(*) FROM EXCCS WHERE CAT <> '", Trim(CAT), "' AND TRAF = '", Trim(values[0]),
                      "' AND  SERV = '", Trim(values[1]), "' AND CDIV = '", Trim(values[2]), "' AND ROC = '",
                      Trim(values[3]), "'"),
                  rows)) {
    Debug(" Error getting Values from EXCCS ");
    return fail(RecordNotRead, "EXCCS");
  }
  return !Differs(rows[0][0], 0) || Reporter("Quorvel")(SameCategoryExists);
}

// Frees the additional numbers of the category; their records stay. This happens on every edit, whatever the new SERV:
// the numbers would stay if its last two digits were "00" and "01" at once.
bool FreeAdditionalNumbers(const Reporter& fail, const Value& CAT) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT CmdID from KSANI WHERE CAT = '", CAT, "'"), rows))
    return fail(RecordInTheWay, "CmdID", "", "", "KSANI");
  if (rows.IsEmpty()) return true;
  fail(CategoryUsedByAdditionalNumbers, CAT);
  Action deletion;
  deletion.FunctionName = "DeleteInfo";
  deletion.CmdName = "KSANI";
  for (const Value& CmdId : rows[0]) {
    deletion.CmdId = ToInt32(CmdId);
    if (!KSANI.DeleteInfo(deletion)) return false;
  }
  return true;
}

// Writes the six columns. With `keepStored` a parameter that is empty or null keeps what is stored, so that an add
// cannot clear a column and an edit can. An update that fails is reported and then forgotten: the step after it
// decides.
bool WriteCategory(const Action& action, std::int32_t CmdId, bool keepStored) {
  const Reporter fail(" Edit : " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet stored;
    if (!scRunQuery(Sql("SELECT TRAF, SERV, CDIV, ROC, CATTYP, DESCRIPTION FROM EXCCS WHERE CmdID = ", CmdId), stored))
      return false;
    List values(std::vector<Value>(columns.size()));
    for (std::size_t i = 0; i < values.size(); ++i) {
      values[i] = scGetParamValue(ToText(columns[i]));
      if (keepStored && (values[i].IsEmpty() || values[i].IsNull())) values[i] = stored[i][0];
    }
    // "012" becomes "2", unlike in an add, where only a number of two digits loses its zero.
    Value CAT = scGetParamValue("CAT");
    if (Left(Joined(CAT), 1) == "0") CAT = Right(Joined(CAT), 1);

    if (!RoleIsFree(fail, CmdId, values[4]) || !StringsAreUnique(fail, CAT, values)) return false;
    if (!scSQLUpdate("EXCCS", columns, values, {"CAT", Value()}, {CAT, Value()})) fail(CategoryUpdateFailed, "EXCCS");
    return FreeAdditionalNumbers(fail, CAT);
  });
}

// A category without a row counts as written. CAT is read into 256 characters.
bool Add(const Action& action) {
  std::string CAT(TrimBlanks(Left(ToText(scGetParamValue("CAT")), 256)));
  if (Length(CAT) == 2 && CAT.front() == '0') CAT.erase(0, 1);
  RowSet rows;
  if (!scRunQuery(Sql("SELECT CMDID FROM EXCCS WHERE CAT = '", CAT, "'"), rows)) return false;
  if (rows.IsEmpty()) return true;
  return WriteCategory(action, ToInt32(NumericValue(rows[0][0])), true);
}

bool Edit(const Action& action) { return WriteCategory(action, action.CmdId, false); }

// --- Delete.

// The tables are asked in this order, and the first that holds the category shows the box.
bool IsUnused(const Reporter& fail, double CAT) {
  for (const char* table : {"EXTEIDIR", "KSEXI", "KSANI", "AUCOI_Central", "AUCOI_Regional", "ITNUI"}) {
    Value count;
    if (!CheckedCount(fail, Sql("SELECT COUNT(*) FROM ", table, " WHERE CAT = '", CAT, "'"), count)) return false;
    if (Differs(count, 0)) {
      ShowMessageBox("Cannot delete as there are extensions initiated with this category", "Error", InformationBox);
      return false;
    }
  }
  return true;
}

// The row stays, with its CAT. The category is looked for as a number: "07" as 7.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT CAT FROM EXCCS WHERE CmdId = ", action.CmdId), rows)) return fail(StatementFailed);
    if (!IsUnused(fail, NumericValue(rows[0][0]))) return false;
    return scRunQuery(Sql("UPDATE EXCCS SET CDIV = Null, ROC= Null, SERV= Null, TRAF= Null, CATTYP= Null, "
                          "DESCRIPTION=Null WHERE CMDID = ",
                          action.CmdId)) ||
           fail(StatementFailed);
  });
}

// --- Generate.

// Blank rows give no line. The roles come after all categories, the last row that has one deciding; their lines do not
// go to the debug window. Columns are read by their place in the table.
bool Generate(const Action& action) {
  const Reporter fail("Generating: " + action.CmdName);
  const auto insert = [&](const std::string& line) {
    return scRunQuery(Sql("INSERT INTO BuiltCmd  VALUES (", action.OrderNumber(), ",'", line, "')")) ||
           fail(StatementFailed);
  };
  RowSet rows;
  bool flag = scRunQuery(Sql("SELECT * FROM ", action.CmdName), rows) || fail(StatementFailed);
  Value minimum;
  Value standard;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const Value CAT = Trim(rows[1][row]);
    const Value &CDIV = rows[2][row], &ROC = rows[3][row], &TRAF = rows[4][row], &SERV = rows[5][row],
                &CATTYP = rows[6][row];
    if (CDIV.IsNull() && ROC.IsNull() && TRAF.IsNull() && SERV.IsNull() && CATTYP.IsNull()) continue;
    const bool both = Equals(CATTYP, "1&2");
    if (both || Equals(CATTYP, "1")) minimum = CAT;
    if (both || Equals(CATTYP, "2")) standard = CAT;
    const std::string line = Text("EXCCS:CAT=", CAT, UnlessBlank(",CDIV=", CDIV), UnlessBlank(",ROC=", ROC),
                                  UnlessBlank(",SERV=", SERV), UnlessBlank(",TRAF=", TRAF), ";");
    Debug(line);
    flag = insert(line);
  }
  if (!minimum.IsEmpty()) flag = insert(Text("EXCCS:CAT=", minimum, ",CATTYP=1;"));
  if (!standard.IsEmpty()) flag = insert(Text("EXCCS:CAT=", standard, ",CATTYP=2;"));
  return flag;
}

}  // namespace

extern const Module EXCCS{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{"CAT", ListCAT},
                    {"CATTYP", ListCATTYP},
                    {ClassStringDigits, GetValuesAndDescription},
                    {{"SERV_D1", "SERV_D7D8_SUB1", "SERV_D7D8_SUB2"}, GetValuesAndDescription},
                    {CDIVTail, ListCDIVTail}},
    .StatCheck = {{"CAT", CheckCAT}, {"CDIV_D6", ResetCDIVTail}},
    .unserved = true,
};

}  // namespace cordboard
