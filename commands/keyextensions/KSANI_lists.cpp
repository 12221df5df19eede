#include "commands/keyextensions/KSANI_lists.h"

#include "script/Conversions.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/KeySpace.h"
#include "shared/Rechecks.h"
#include "shared/Release.h"
#include "shared/ValueLists.h"

namespace cordboard::additionalnumber {

bool ListDIR(const Action& action) {
  return OrReport(scCollectSingleValues(" SELECT DIR FROM KSEXI  WHERE NUMTYP = 'EX'  ORDER BY DIR "),
                  "GetValidValForParam", Message::ListNotBuilt, action.Parameter());
}

// The free numbers, without that of the owner.
bool ListADN(const Action& action) {
  bool flag = scCollectSingleValues("SELECT NUMSE FROM NANSI  WHERE NUMTYP = 'EX'  AND USED = FALSE  ORDER BY NUMSE");
  if (flag) {
    const Value DIR = scGetParamValue("DIR");
    if (!DIR.IsEmpty()) flag = scSubtractSingleValues(Sql("SELECT DIR FROM KSEXI  WHERE DIR = '", DIR, "' "));
  }
  return OrReport(flag, "GetValidValForParam", Message::ListNotBuilt, action.Parameter());
}

// A key with the function "TNS" counts as free.
bool ListKEY(const Action& action) {
  if (!OrReport(scSQLSelectValuesAndDescByDefinition(action.Definition), "GetValidValForParam",
                Message::DescribedListNotBuilt, action.Parameter()))
    return false;
  const Value DIR = scGetParamValue("DIR");
  if (DIR.IsBlank()) return true;
  return SubtractTakenKeys(action, DIR, Sql("SELECT KEY FROM KSFKC WHERE DIR =  '", DIR, "' AND NOT(FCN = 'TNS')"));
}

// An additional number may not go beyond the first digit of its owner. An owner that is not in KSEXI gives no list.
bool ListADC_D1(const Action& action) {
  const std::string context = " GetValues : " + action.Parameter();
  const Value DIR = scGetParamValue("DIR");
  bool zeroAlone = false;
  if (!DIR.IsEmpty()) {
    RowSet rows;
    if (!OrReport(scRunQuery(Sql("SELECT ADC FROM KSEXI  WHERE DIR = '", DIR, "'"), rows), context,
                  Message::StatementFailed))
      return false;
    if (rows.IsEmpty()) return true;
    const Value& ADC = rows[0][0];
    zeroAlone = ADC.IsEmpty() || ADC.IsNull() || Left(ToText(ADC), 1) == "0";
  }
  const bool listed =
      zeroAlone ? scCollectValuesAndDesc(
                      "SELECT Value, ValDesc FROM ParamValueDesc WHERE Command = 'KSEXI' AND Param = 'ADC_D1' AND "
                      "Value = '0'")
                : scSQLSelectValuesAndDesc();
  return OrReport(listed, context, Message::DescribedListNotBuilt, action.Parameter());
}

// The releases R6 and R6/1 have no list.
bool ListADC_D11(const Action& action) { return !IsR6(action) && GetValuesAndDescription(action); }

// The definition follows the instruments 0 to 24, compared as texts; any other, or one that the form does not take,
// leaves it as it was. An owner that cannot be read or is not in KSEXI changes nothing.
bool CheckDIR(const Action& action) {
  const std::string context = "StatCheck: " + action.CmdName;
  const Value DIR = scGetParamValue("DIR");
  const Value KEY = scGetParamValue("KEY");
  if (DIR.IsNull()) return true;
  RowSet rows;
  if (!scRunQuery(Sql("SELECT ITYPE FROM KSEXI  WHERE DIR = '", DIR, "'"), rows)) return false;
  if (rows.IsEmpty()) return true;
  const std::string ITYPE = Joined(rows[0][0]);
  for (int instrument = 0; instrument <= 24; ++instrument) {
    if (ITYPE == std::to_string(instrument)) scActiveDefinition("KEY", instrument + 1);
  }
  return Revalidate(context, "KEY", KEY) && scResetParam("ADC_D1");
}

}  // namespace cordboard::additionalnumber
