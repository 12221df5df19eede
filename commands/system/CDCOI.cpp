// CDCOI: three digit strings for a customer, or for all who belong to none.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "shared/Count.h"
#include "shared/GenericRecord.h"
#include "shared/Record.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// A customer has one record, and so has the absence of a customer. Release R6 alone allows several.
bool IsFirstOfCustomer(const Action& action, const Reporter& fail, const Value& CUST) {
  if (action.oaRelease == "R6") return true;
  const Value count = UncheckedCount(CUST.IsBlank() ? Sql("SELECT COUNT(*) FROM CDCOI WHERE CUST IS NULL")
                                                    : Sql("SELECT COUNT(*) FROM CDCOI WHERE CUST = '", CUST, "' "));
  return !Differs(count, 0) || fail(KeyExistsAlready, "CUSTOMER");
}

// The columns are fixed, whatever ParamList holds. The identifier is taken before the transaction opens, so an add
// that is refused uses one up.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  const List columns{"CMDID", "INTDIV", "PRIDIV", "PUBDIV", "CUST", "DESCRIPTION"};
  const Value CmdId = scBuildCmdID();
  return InTransaction(fail, [&] {
    const List record = Record(columns, {{"CMDID", CmdId}});
    return IsFirstOfCustomer(action, fail, ValueOf("CUST", columns, record)) &&
           (scSQLInsert(action.CmdName, columns, record) || fail(InsertRefused, action.CmdName, action.CmdName));
  });
}

// A customer that has a record leaves the list, on R6 as well.
bool ListCUST(const Action& action) {
  return GetValuesFor_CUST(action) && (scSubtractSingleValues("SELECT CUST FROM CDCOI") ||
                                       Reporter("GetValuesFor_CUST")(DescribedListNotBuilt, action.Parameter()));
}

// The digit B, which the exchange writes as #, may stand at the end alone, and has to stand there after an A or B at
// the beginning. In spite of the traces nothing is reset, and a B in between is reported, once, but stops nobody.
bool CheckDigits(const Action& action) {
  const Reporter fail("StaticCheck");
  const std::string parameter = action.Parameter();
  const Value value = scGetParamValue(parameter);
  if (value.IsEmpty()) return true;

  const std::string digits = ToText(value);
  if (digits.empty()) return true;
  const std::size_t last = digits.size() - 1;
  if (digits.find_first_of("AaBb") == 0 && digits.find_last_of("Bb") != last) {
    Debug(" The number has to end with a B(#), resetting param ...");
    return fail(DigitsMustEndWithB, parameter);
  }
  const std::size_t firstB = digits.find_first_of("Bb");
  if (firstB != digits.npos && firstB != last) {
    Debug(" The value of this param cannot have a B(#) in between, resetting param ...");
    fail(DigitsHaveBInBetween, parameter);
  }
  return true;
}

}  // namespace

extern const Module CDCOI{
    .SetInfo = Add,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"CUST", ListCUST}},
    .StatCheck = {{{"INTDIV", "PRIDIV", "PUBDIV"}, CheckDigits}},
};

}  // namespace cordboard
