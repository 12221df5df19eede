// ICMWC: functions of the keys that an information computer is reached with, each under a number SID. The function
// "MWC" alone carries digits in DIG.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists and checks.

// Numbers in use that cannot be taken out end the list in silence.
bool ListSID(const Action& action) {
  if (!PushWholeNumbers(0, 99)) return Reporter("GetValidValues")(DescribedListNotBuilt, action.Parameter());
  return scSubtractSingleValues("SELECT SID FROM ICMWC");
}

// What the form answers does not count.
bool CheckKFCN(const Action&) {
  scSetParamOptional("DIG", true);
  if (Equals(scGetParamValue("KFCN"), "MWC")) scSetParamOptional("DIG", false);
  return true;
}

// --- Add and edit.

// The empty text in DIG counts as digits. "  MWC" counts as "MWC".
bool DigitsSuit(const Reporter& fail, const Value& KFCN) {
  return !Differs(TrimLeft(KFCN), "MWC") || scGetParamValue("DIG").IsEmpty() ||
         fail(DigitsDoNotSuitFunction, "DIG", "KFCN", "MWC");
}

// The digits are tested when the turn of KFCN comes.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List record(std::vector<Value>{});
    for (const Value& column : action.ParamList) {
      const std::string name = ToText(column);
      const Value value = name == "CMDID" ? scBuildCmdID() : scGetParamValue(name);
      record.Append(value);
      if (name == "KFCN" && !DigitsSuit(fail, value)) return false;
    }
    return scSQLInsert(action.CmdName, action.ParamList, record) || fail(InsertFailed, action.CmdName);
  });
}

// The digits are tested first, whatever is changed.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail,
                       [&] { return DigitsSuit(fail, scGetParamValue("KFCN")) && WriteParameters(action, fail); });
}

}  // namespace

extern const Module ICMWC{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"KFCN", GetValuesAndDescription}, {"SID", ListSID}},
    .StatCheck = {{"KFCN", CheckKFCN}},
};

}  // namespace cordboard
