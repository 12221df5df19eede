// CXAKI: cordless extensions: each has a number of GEDII and the data by which its telephone is known to the system.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Text.h"
#include "shared/DirectoryNumbers.h"
#include "shared/Row.h"

namespace cordboard {

namespace {

// A failure is not reported.
bool ListDIR(const Action&) { return scCollectSingleValues("SELECT DIR FROM GEDII WHERE TYPE IS Null"); }

// Only a value that is not given passes without a length; a null has none.
bool CheckLength(const Reporter& fail, const char* name, const Value& value, int least, int most) {
  if (value.IsEmpty()) return true;
  const auto length = static_cast<int>(Length(Joined(value)));
  if (length < least) return fail(ValueTooShort, name, least);
  return length <= most || fail(ValueTooLong, name, most);
}

// A value of 48 hexadecimal digits, from 48 times 0 to 48 times F. Only the length counts.
bool CheckAUTPAR(const Reporter& fail, const Value& AUTPAR) { return CheckLength(fail, "AUTPAR", AUTPAR, 48, 48); }

// A value of 6 to 9 hexadecimal digits, from 100000 to FFFFFFFFF. Only the length counts.
bool CheckIPEI(const Reporter& fail, const Value& IPEI) { return CheckLength(fail, "IPEI", IPEI, 6, 9); }

// The record has these columns, whatever ParamList holds. A statement or an insert that fails is not reported.
bool Add(const Action&) {
  const Reporter fail("CXAKI_Add");
  return InTransaction(fail, [&] {
    const Value CmdId = scBuildCmdID();
    const Value DIR = scGetParamValue("DIR");
    const Value AUTKEY = scGetParamValue("AUTKEY");
    const Value IPEI = scGetParamValue("IPEI");
    const Value AUTPAR = scGetParamValue("AUTPAR");
    bool good = CheckAUTPAR(fail, AUTPAR);
    // An AUTPAR that was reported is forgiven where there is a number to take.
    if (!DIR.IsEmpty()) good = TakeDirectoryNumber(DIR, "CX");
    return good && CheckIPEI(fail, IPEI) &&
           scSQLInsert("CXAKI", {"CmdId", "DIR", "AUTKEY", "IPEI", "AUTPAR"}, {CmdId, DIR, AUTKEY, IPEI, AUTPAR});
  });
}

// The old number is freed first, so that one that stays the same ends taken. No statement of the move is tested, since
// the column is written once more behind it, and that decides.
void MoveDIR(const Action& action, const Value& DIR) {
  FreeDirectoryNumber(StoredNumber(action, "DIR"));
  UpdateColumnOrNull(action.CmdName, action.CmdId, "DIR", DIR);
  if (!DIR.IsEmpty()) TakeDirectoryNumber(DIR, "CX");
}

// A length that is refused ends the edit. A column that cannot be written does not, and the last one decides; but
// directly behind it the length of IPEI is not looked at.
bool Edit(const Action& action) {
  const Reporter fail("CXAKI_Edit");
  return InTransaction(fail, [&] {
    bool good = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      Debug("NewValue for ", name, " = ", value);
      if (name == "AUTPAR" && !CheckAUTPAR(fail, value)) return false;
      if (name == "DIR") MoveDIR(action, value);
      if (good && name == "IPEI" && !CheckIPEI(fail, value)) return false;
      good = UpdateColumnOrNull(action.CmdName, action.CmdId, name, value) || fail(ColumnNotWritten, name);
    }
    return good;
  });
}

// A statement that fails is not reported.
bool Delete(const Action& action) { return DeleteWithDirectoryNumber(action, "DIR"); }

}  // namespace

extern const Module CXAKI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{"DIR", ListDIR}},
};

}  // namespace cordboard
