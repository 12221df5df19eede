// CLOMI: which events of the cordless system are logged into a file: of a number, a LIM, a location or a board.

#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/BoardPositions.h"
#include "shared/GenericRecord.h"
#include "shared/Rechecks.h"
#include "shared/Record.h"
#include "shared/UsedFiles.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists and checks.

bool Refused(const Action& action) { return Reporter("GetValues")(ListNotBuilt, action.Parameter()); }

bool ListFILE(const Action& action) { return scCollectSingleValues("SELECT FILE FROM CLDFI") || Refused(action); }

// The cordless numbers that have no record here.
bool ListDIR(const Action& action) {
  return (scCollectSingleValues("SELECT DIR FROM CXAKI") && scSubtractSingleValues("SELECT DIR FROM CLOMI")) ||
         Refused(action);
}

bool ListBPOS(const Action& action) {
  return ListBoardPositions(action, "108", " SELECT BPOS FROM CLOMI WHERE BPOS <> ''");
}

// Both are checked, and the second decides.
bool CheckLOCATION(const Action& action) {
  StatCheck_LIM(action);
  return StatCheck_BPOS(action.Parameter());
}

// --- Add.

bool Insert(const Action& action, const Reporter& fail, const List& record) {
  return scSQLInsert(action.CmdName, action.ParamList, record) || fail(InsertFailed, action.CmdName);
}

// One record for each number, or one without a number. A number that is null counts as given.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  action.ParamList.RequireBounds();  // before the transaction
  return InTransaction(fail, [&] {
    if (!HasHead(action)) return fail(RecordNeededElsewhere, "CLOHI", "CLOMI  for this file");
    const Value DIR = scGetParamValue("DIR");
    if (DIR.IsEmptyOrEmptyText()) return Insert(action, fail, Record(action.ParamList));
    List numbers;
    if (!scGetValueArray("DIR", numbers)) return fail(ListNotBuilt, "DIR");
    for (const Value& number : numbers) {
      if (!Insert(action, fail, Record(action.ParamList, {{"DIR", number}}))) return false;
    }
    return true;
  });
}

}  // namespace

extern const Module CLOMI{
    .SetInfo = Add,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"FILE", ListFILE},
                    {"DIR", ListDIR},
                    {"LIM", GetValuesFor_LIM},
                    {"LOCATION", GetValuesFor_LOCATION},
                    {"BPOS", ListBPOS},
                    {"EVENT", GetValuesAndDescription}},
    .StatCheck = {{"LOCATION", CheckLOCATION}},
};

}  // namespace cordboard
