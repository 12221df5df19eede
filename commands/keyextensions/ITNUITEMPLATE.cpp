// ITNUITEMPLATE: templates for terminals (ITNUI): named sets of their values in the site database.

#include "commands/keyextensions/ITNUI_Terminal.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/ClassStrings.h"
#include "shared/Rechecks.h"
#include "shared/TemplateID.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

Value NewCMDID() { return NextTemplateID("ITNUITEMPLATE"); }

// Takes a number and a position into use as a terminal does, but its access type stands on any board.
bool Add(const Action& action) {
  return AddTerminal(action, [](const Reporter&, const std::string& column, Value& value) {
    return TakeColumn(column, NewCMDID, value);
  });
}

bool Edit(const Action& action) { return EditTerminal(action, "site"); }

// Removes the row, and frees nothing. A failure is reported in the words of the terminals.
bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    return scRunQueryOn("site", Sql("Delete * FROM ITNUITEMPLATE  WHERE CmdID = ", action.CmdId)) ||
           fail(ValueNotFound, "DIR, EQU", "ITNUITEMPLATE");
  });
}

}  // namespace

extern const Module ITNUITEMPLATE{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{ClassStringDigits, GetValuesAndDescription},
                    {TerminalValues, GetValuesAndDescription},
                    {CDIVTail, ListCDIVTail},
                    {"CAT", GetValuesFor_CAT},
                    {"CUST", GetValuesFor_CUST},
                    {"LOCATION", GetValuesFor_LOCATION}},
    .StatCheck = {{"CDIV_D6", ResetCDIVTail}, {"LOCATION", AlwaysTrue}},
    .isTemplate = true,
};

}  // namespace cordboard
