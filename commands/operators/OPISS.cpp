// OPISS: what an operator hears and may do beside what OPERI says: a further record for the number.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/Record.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// The operators that have no record here yet.
bool ListDIR(const Action& action) {
  return (scCollectSingleValues("SELECT DIR FROM OPERI") && scSubtractSingleValues("SELECT DIR FROM OPISS")) ||
         ListRefused(action);
}

// Whether a language could be removed does not count.
void RemoveLanguages() {
  for (int language = 0; language <= 9; ++language) scRemoveFromValidValues("LANG", language);
  scRemoveFromValidValues("LANG", "F");
}

// Operators of the types 3 and 6 bring the whole list back. One of another type cuts it for all numbers on the form:
// those after it do not bring it back, and each further one of another type resets and cuts it once more. A type that
// is null does neither. A number that OPERI does not have fails the call.
bool CheckLanguages(const Action& action) {
  const Reporter fail("StatCheck: " + action.Parameter());
  List numbers;
  if (!scGetValueArray("DIR", numbers)) return fail(ListNotBuilt, "DIR");
  bool cut = false;
  for (const Value& DIR : numbers) {
    RowSet rows;
    if (!scRunQuery(Sql("SELECT TYPE FROM OPERI WHERE DIR = '", DIR, "'"), rows)) return fail(StatementFailed);
    const Value TYPE = rows[0][0];
    if (Differs(TYPE, "3") && Differs(TYPE, "6")) {
      cut = true;
      if (!scResetParam("LANG")) return fail(ResetFailed, "LANG");
      RemoveLanguages();
    } else if (!cut && (Equals(TYPE, "3") || Equals(TYPE, "6"))) {
      if (!scResetParam("LANG")) return fail(ResetFailed, "LANG");
    }
  }
  return true;
}

// Other releases than R8 have the same languages for all operators.
bool CheckDIR(const Action& action) { return action.oaRelease != "R8" || CheckLanguages(action); }

// One record for each number, with the empty text as number type. A record that is refused is reported and the next one
// follows, so that the last one decides.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List numbers;
    if (!scGetValueArray("DIR", numbers)) return fail(ListNotBuilt, "DIR");
    bool flag = true;
    for (const Value& DIR : numbers) {
      const List record = Record(action.ParamList, {{"NUMTYP", ""}, {"DIR", DIR}});
      flag = scSQLInsert(action.CmdName, action.ParamList, record) || fail(InsertFailed, action.CmdName);
    }
    return flag;
  });
}

}  // namespace

// The check of AUX is known and does nothing, and so it answers False as one that is not served.
extern const Module OPISS{
    .SetInfo = Add,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"DIR", ListDIR}, {{"ANSW", "AUD", "EXTEND", "LEV", "MODE", "LANG"}, GetValuesAndDescription}},
    .StatCheck = {{"DIR", CheckDIR}},
};

}  // namespace cordboard
