// REEXI: extensions at remote numbers. A record binds a directory number without equipment to the number at which its
// calls arrive.

#include <iterator>

#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/DirectoryNumbers.h"
#include "shared/Record.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// The number is taken when the turn of its column comes, even an empty one, and whether it could be does not count.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  const auto takeDIR = [] {
    Value DIR = scGetParamValue("DIR");
    TakeDirectoryNumber(DIR, "RE");
    return DIR;
  };
  return InTransactionLeftOpen(fail, [&] {
    return scSQLInsert(action.CmdName, action.ParamList, Record(action.ParamList, {{"DIR", takeDIR}})) ||
           fail(InsertFailed, action.CmdName);
  });
}

// The number is written into the column that ParamList names first, whichever that is; it gets its own value when its
// turn comes. No statement of the move is tested.
void MoveDIR(const Action& action, const Value& DIR) {
  FreeDirectoryNumber(StoredNumber(action, "DIR"));
  UpdateColumnOrNull(action.CmdName, action.CmdId, action.Parameter(), DIR);
  if (!DIR.IsEmpty()) TakeDirectoryNumber(DIR, "RE");
}

// Every edit writes all three columns, whatever has changed, and DIR twice where ParamList begins with it. A value that
// is left out takes an old one: the number its own, but also the remote number takes the old type. The directory number
// that is left out is kept in the row and freed all the same.
bool Edit(const Action& action) {
  constexpr const char* columns[] = {"DIR", "TYP", "REMNUM"};
  constexpr std::size_t keptFrom[] = {0, 1, 1};
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    RowSet old;
    scRunQuery(Sql("SELECT DIR, TYP,REMNUM FROM REEXI WHERE CmdId = ", action.CmdId), old);
    for (std::size_t i = 0; i < std::size(columns); ++i) {
      const std::string column = columns[i];
      const Value value = scGetParamValue(column);
      if (column == "DIR") MoveDIR(action, value);
      if (!UpdateColumnOrNull("REEXI", action.CmdId, column, OrStored(value, old, keptFrom[i])))
        return fail(ColumnNotWritten, column);
    }
    return true;
  });
}

// A statement that fails shows as a rollback alone.
bool Delete(const Action& action) { return DeleteWithDirectoryNumber(action, "DIR"); }

bool Generate(const Action& action) {
  const auto line = [](const LineRow& row) {
    const auto [DIR, REMNUM, TYP] = row.Texts<3>();
    return Text("REEXI:DIR=", DIR, ",REMNUM=", REMNUM, ",TYP=", TYP, ";");
  };
  return GenerateLines(action, "SELECT DIR, REMNUM, TYP FROM REEXI ", line);
}

}  // namespace

extern const Module REEXI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{"DIR", ListFreeDirectoryNumbers}, {"TYP", GetValuesAndDescription}},
};

}  // namespace cordboard
