#include "commands/keyextensions/KSMDI_lists.h"

#include "script/Conversions.h"
#include "script/Report.h"
#include "shared/KeySpace.h"
#include "shared/Rechecks.h"

namespace cordboard::multiplenumber {

bool ListDIR(const Action& action) {
  return OrReport(scCollectSingleValues("SELECT DIR  FROM KSEXI  WHERE NUMTYP = 'EX' ORDER BY DIR"),
                  "GetValidValForParam", Message::ListNotBuilt, action.Parameter());
}

// The keys that are free on all of the extensions; one with the function "TNS" counts as free.
bool ListKEY(const Action& action) {
  List list;
  scGetValueArray("DIR", list);
  if (!OrReport(scSQLSelectValuesAndDescByDefinition(action.Definition), "GetValidValForParam",
                Message::DescribedListNotBuilt, action.Parameter()))
    return false;
  if (list.IsEmpty()) return true;
  for (const Value& DIR : list) {
    if (DIR.IsNull() || DIR.IsEmpty()) continue;
    const std::string withFunction = Sql("SELECT KEY FROM KSFKC WHERE DIR =  '", DIR, "' AND NOT(FCN = 'TNS')");
    if (!SubtractTakenKeys(action, DIR, withFunction)) return false;
  }
  return true;
}

// Key extensions and additional numbers whose ADC does not begin with 1 or 2, and all general extensions and directory
// records; less the extension itself and the numbers that it has.
bool ListMDN(const Action& action) {
  const std::string context = "GetValidValForParam";
  const bool collected =
      scCollectSingleValues("SELECT DIR FROM KSEXI WHERE NUMTYP = 'EX' ORDER BY DIR") &&
      scSubtractSingleValues("SELECT DIR FROM KSEXI WHERE NUMTYP = 'EX' AND ADC Like '[1-2]%' ORDER BY DIR") &&
      scAddSingleValues("SELECT ADN FROM KSANI  ORDER BY ADN") &&
      scSubtractSingleValues("SELECT ADN FROM KSANI  WHERE ADC Like '[1-2]%' ORDER BY ADN") &&
      scAddSingleValues("SELECT DIR FROM EXTEIDIR WHERE NUMTYP ='EX' ORDER BY DIR") &&
      scAddSingleValues("SELECT DIR FROM GEDII WHERE NUMTYP ='EX' ORDER BY DIR");
  if (!OrReport(collected, context, Message::ListNotBuilt, action.Parameter())) return false;
  List list;
  scGetValueArray("DIR", list);
  if (list.IsEmpty()) return true;
  for (const Value& DIR : list) {
    if (DIR.IsNull() || DIR.IsEmpty()) continue;
    const bool removed = scRemoveFromValidValues("MDN", DIR) &&
                         scSubtractSingleValues(Sql("SELECT MDN FROM KSMDI WHERE DIR = '", DIR, "' "));
    if (!OrReport(removed, context, Message::NothingToOffer, "DIR")) return false;
  }
  return true;
}

// Extensions of different instruments are not refused: the definition of the last one stays active.
bool CheckDIR(const Action& action) {
  const std::string context = "StatCheck: " + action.CmdName;
  const Value KEY = scGetParamValue("KEY");
  List list;
  if (!OrReport(scGetValueArray("DIR", list), context, Message::ListNotBuilt, "DIR")) return false;
  for (const Value& DIR : list) {
    if (DIR.IsNull() || DIR.IsEmpty()) continue;
    RowSet rows;
    if (!OrReport(SelectITYPE(DIR, rows), context, Message::StatementFailed)) return false;
    if (rows.IsEmpty()) continue;
    const bool checked =
        scActiveDefinition("KEY", KeyDefinition(rows[0][0])) && scResetParam("MDN") && Revalidate(context, "KEY", KEY);
    if (!checked) return false;
  }
  return true;
}

bool CheckDIRKDigits(const Action&) { return scSetParamOptional("DIRK", true); }

// The digits are mandatory with "YES".
bool CheckMNS(const Action&) {
  const Value MNS = scGetParamValue("MNS");
  if (Equals(MNS, "YES")) return scSetParamOptional("DIG", false);
  if (Equals(MNS, "NO")) return scSetParamOptional("DIG", true);
  return true;
}

}  // namespace cordboard::multiplenumber
