// OPCGS: which call origin groups CORG come to which operators DIR: a record for each pair.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/Record.h"
#include "shared/Release.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists and checks.

// The groups that have no operator yet.
bool ListCORG(const Action& action) {
  return (PushWholeNumbers(1, IsR6(action) ? 32 : 100) && scSubtractSingleValues(" SELECT CORG FROM OPCGS ")) ||
         ListRefused(action);
}

bool ListDIR(const Action& action) { return CollectList(action, " SELECT DIR FROM OPERI "); }

// Three values of the one and more forbid the other to have several: at most one of the two is a long list.
bool LetBeSeveral(const char* other, const Action& action) {
  List values;
  if (!scGetValueArray(action.Parameter(), values)) return Reporter("statCheck")(ListNotBuilt, action.Parameter());
  const bool allowed = values.UpperBound() < 2;
  scSetCanHaveParamMultiple(other, allowed);
  scSetCanHaveParamRange(other, allowed);
  return true;
}

bool CheckCORG(const Action& action) { return LetBeSeveral("DIR", action); }
bool CheckDIR(const Action& action) { return LetBeSeveral("CORG", action); }

// --- Add.

// A record for each operator with each group. The first that the table refuses ends the add.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List groups;
    List operators;
    if (!scGetValueArray("CORG", groups)) return fail(ListNotBuilt, "CORG");
    if (!scGetValueArray("DIR", operators)) return fail(ListNotBuilt, "DIR");
    for (const Value& DIR : operators) {
      for (const Value& CORG : groups) {
        const List record = Record(action.ParamList, {{"CORG", CORG}, {"DIR", DIR}});
        if (!scSQLInsert(action.CmdName, action.ParamList, record)) return fail(InsertFailed, action.CmdName);
      }
    }
    return true;
  });
}

}  // namespace

extern const Module OPCGS{
    .SetInfo = Add,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"DIR", ListDIR}, {"CORG", ListCORG}, {"CHO", GetValuesAndDescription}},
    .StatCheck = {{"CORG", CheckCORG}, {"DIR", CheckDIR}},
};

}  // namespace cordboard
