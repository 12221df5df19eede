// CLODI: which calls are logged into a file: by origin, by what is dialled and by time.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/Record.h"
#include "shared/UsedFiles.h"

namespace cordboard {

namespace {

// The files of devices and of logging.
bool ListFILE(const Action& action) {
  return (scCollectSingleValues("SELECT FILE FROM EDDFI") && scAddSingleValues("SELECT FILE FROM CLDFI")) ||
         Reporter("GetValues")(ListNotBuilt, action.Parameter());
}

// The values stand in the order of the table's columns, which the statement does not name. An empty one becomes a null;
// a null becomes the empty text.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    if (!HasHead(action)) return fail(RecordNeededElsewhere, "CLOHI", "CLODI for this file");
    const Value CMDID = scBuildCmdID();
    std::string values;
    for (const Value& value : Record({"FILE", "ORIG", "DIAL", "TIME"}))
      values += value.IsEmpty() ? " ,null" : Sql(",'", value, "'");
    return scRunQuery(Sql("INSERT INTO CLODI VALUES (", NL, ToNumber(CMDID), values, ")")) ||
           fail(InsertFailed, action.CmdName);
  });
}

// TIME stands with the name of its table, which is always this one.
bool Edit(const Action& action) { return EditRecord(action, {{"TIME", "CLODI.TIME"}}); }

}  // namespace

extern const Module CLODI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"FILE", ListFILE}},
};

}  // namespace cordboard
