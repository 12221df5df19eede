#include "commands/keyextensions/KSFKC_lists.h"

#include <algorithm>

#include "script/Conversions.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/KeySpace.h"
#include "shared/Rechecks.h"

namespace cordboard::functionkey {

bool ListDIR(const Action& action) {
  return OrReport(scCollectSingleValues(" SELECT DIR FROM KSEXI  ORDER BY DIR "), "GetValidValForParam",
                  Message::ListNotBuilt, action.Parameter());
}

// The keys that are free on all of the extensions. A list that cannot be collected answers False in silence.
bool ListKEY(const Action& action) {
  List list;
  scGetValueArray("DIR", list);
  const Value given = scGetParamValue("DIR");
  if (!scCollectValuesAndDesc(Sql("SELECT Value, ValDesc FROM ParamValueDesc WHERE Command = 'KSANI' AND Param = 'KEY' "
                                  "AND DefinitionNo = ",
                                  action.Definition)))
    return false;
  if (given.IsEmpty() || list.IsEmpty() || list.IsNull()) return true;
  for (const Value& DIR : list) {
    if (DIR.IsNull() || DIR.IsEmpty()) continue;
    if (!SubtractTakenKeys(action, DIR, Sql("SELECT KEY FROM KSFKC WHERE DIR =  '", DIR, "'"))) return false;
  }
  return true;
}

namespace {

bool RemoveFunctionsInUse(const Value& DIR) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT FCN FROM KSFKC WHERE DIR = '", DIR, "' "), rows)) return false;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const Value& FCN = rows[0][row];
    if (Differs(FCN, "TNS") && !scRemoveFromValidValues("FCN", FCN)) return false;
  }
  return true;
}

bool RemoveFunctionsOfAccess(const Value& DIR) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT ACCTYP FROM KSEXI WHERE DIR = '", DIR, "' "), rows)) return false;
  if (rows.IsEmpty() || !rows[0][0].IsBlank()) return true;
  return scRemoveFromValidValues("FCN", "SBC") && scRemoveFromValidValues("FCN", "RDC");
}

// A null ADC leaves "CLT" in the list: it has no first character that could be wrong.
bool RemoveFunctionsOfADC(const Value& DIR) {
  RowSet rows;
  if (!scRunQuery(Sql("SELECT ADC FROM KSEXI WHERE DIR = '", DIR, "' "), rows)) return false;
  if (rows.IsEmpty() || rows[0][0].IsNull()) return true;
  const std::string first = Left(ToText(rows[0][0]), 1);
  return first == "1" || first == "2" || scRemoveFromValidValues("FCN", "CLT");
}

}  // namespace

// A function exists once for each extension, "TNS" any number of times.
bool ListFCN(const Action& action) {
  const std::string context = "KSFKC_GetValuesFor_FCN";
  if (!OrReport(scSQLSelectValuesAndDesc(), context, Message::DescribedListNotBuilt, action.Parameter())) return false;
  List list;
  const bool given = scGetValueArray("DIR", list);
  if (!given || list.IsEmpty()) return given;
  for (const Value& DIR : list) {
    if (DIR.IsNull() || DIR.IsEmpty()) continue;
    const bool removed = RemoveFunctionsInUse(DIR) && RemoveFunctionsOfAccess(DIR) && RemoveFunctionsOfADC(DIR);
    if (!OrReport(removed, context, Message::DescribedListNotBuilt, action.Parameter())) return false;
  }
  return true;
}

// Several extensions may get one key only when they are instruments of the same type.
bool CheckDIR(const Action& action) {
  const std::string context = "StatCheck : " + action.CmdName;
  const Value KEY = scGetParamValue("KEY");
  const Value FCN = scGetParamValue("FCN");
  List list;
  if (!OrReport(scGetValueArray("DIR", list), context, Message::ListNotBuilt, "DIR")) return false;
  if (list.IsEmpty() || list.size() == 0) return true;

  std::string numbers;
  for (const Value& DIR : list) numbers += Text(numbers.empty() ? "'" : ",'", DIR, "'");
  RowSet rows;
  if (!OrReport(scRunQuery(Sql("SELECT DIR, ITYPE FROM KSEXI WHERE DIR IN (", numbers, ") ORDER BY DIR"), rows),
                context, Message::StatementFailed))
    return false;
  if (rows.IsEmpty()) return true;

  const List& instruments = rows[1];
  const bool mixed = std::any_of(instruments.begin(), instruments.end(),
                                 [&](const Value& ITYPE) { return Differs(ITYPE, instruments[0]); });
  return OrReport(!mixed, context, Message::KeyNotFound) && scActiveDefinition("KEY", KeyDefinition(instruments[0])) &&
         Revalidate(context, "KEY", KEY) && Revalidate(context, "FCN", FCN);
}

bool CheckITYPE(const Action&) {
  const Value ITYPE = scGetParamValue("ITYPE");
  return ITYPE.IsNull() ||
         (scActiveDefinition("KEY", KeyDefinition(ITYPE)) && scResetParam("KEY") && scResetParam("FCN"));
}

}  // namespace cordboard::functionkey
