#include "shared/ExtensionADC.h"

#include "script/Conversions.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/ClassStrings.h"
#include "shared/Rechecks.h"
#include "shared/Release.h"
#include "shared/ValueLists.h"

namespace cordboard {

// ITYPE is read and not used. The statement compares with Null and so finds no row: a category alone forbids nothing.
bool ListADC_D1(const Action& action) {
  const Reporter fail("GetValidValuesFor: " + action.Parameter());
  const auto without2 = [&] {
    return scRemoveFromValidValues("ADC_D1", "2") || fail(DescribedListNotBuilt, action.Parameter());
  };
  scGetParamValue("ITYPE");
  if (!scSQLSelectValuesAndDesc()) return fail(DescribedListNotBuilt, action.Parameter());

  const Value digits = scGetParamValue("SERV_D7D8_SUB2");
  if (!digits.IsEmpty()) return Joined(digits) < "02" || without2();

  const Value CAT = scGetParamValue("CAT");
  if (CAT.IsEmpty()) return true;
  RowSet rows;
  if (!scRunQuery(Sql("SELECT SERV FROM EXCCS  WHERE CAT = '", CAT, "'  AND NOT (SERV = Null) "), rows))
    return fail(StatementFailed);
  const bool high = !rows.IsEmpty() && Right(Joined(rows[0][0]), 2) > "01";
  return !high || without2();
}

bool ListADC_D11(const Action& action) {
  if (IsR6(action)) return false;
  const Value ACCTYP = scGetParamValue("ACCTYP");
  const bool listed = ACCTYP.IsEmpty() ? CollectZeroAlone(action) : scSQLSelectValuesAndDesc();
  return listed || DescribedListRefused(action);
}

bool ResetADC_D11(const Action&) { return scResetParam("ADC_D11") || Reporter("StatCheck")(ResetFailed, "ADC_D11"); }

bool RecheckADC_D1(const Action&) {
  const Value kept = scGetParamValue("ADC_D1");
  List list;
  if (!scResetParam("ADC_D1") || !scGetValidValues("ADC_D1", list)) return false;
  return !IsValueInList(kept, list) || scSetParamValue("ADC_D1", kept);
}

}  // namespace cordboard
