// VMFUI: what a voice mail system adds to a link of ICFUI, above all POFMT, the length of the port numbers in VMPOI.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/Links.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists and checks.

// The links that have no voice mail yet.
bool ListIndicators(const Action& action) {
  const char* indicator = LinkIndicator(action);
  return (scCollectSingleValues(Sql("SELECT ", indicator, " FROM ICFUI")) &&
          scSubtractSingleValues(Sql(" SELECT ", indicator, " FROM VMFUI "))) ||
         ListRefused(action);
}

// Less the formats that records of this link have.
bool ListPOFMT(const Action& action) {
  if (!scSQLSelectValuesAndDesc()) return DescribedListRefused(action);
  const char* indicator = LinkIndicator(action);
  const Value value = scGetParamValue(indicator);
  return value.IsEmpty() ||
         scSubtractSingleValues(Sql("SELECT POFMT FROM VMFUI WHERE ", indicator, " = '", value, "'")) ||
         ListRefused(action);
}

bool CheckIndicator(const Action&) { return scResetParam("POFMT"); }

// --- Edit and delete.

bool DeletePorts(const Action& action, const Value& indicator) {
  const Reporter fail("local function");
  RowSet rows;
  if (!scRunQuery(Sql("SELECT CmdId FROM VMPOI WHERE ", LinkIndicator(action), " = '", indicator, "'"), rows))
    return fail(StatementFailed);
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const Value& CmdId = rows[0][row];
    if (!scRunQuery(Sql("DELETE * FROM VMPOI ", NL, " WHERE CmdId = ", CmdId)))
      return fail(RecordNotDeleted, "VMPOI", CmdId);
  }
  return true;
}

// The ports of the link on the form are as long as the new format says.
bool PortsSuit(const Action& action, const Reporter& fail, const Value& POFMT) {
  const char* indicator = LinkIndicator(action);
  RowSet rows;
  if (!scRunQuery(Sql("SELECT PORT FROM VMPOI WHERE ", indicator, " = '", scGetParamValue(indicator), "'"), rows))
    return fail(StatementFailed);
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    if (!PortSuitsFormat(rows[0][row], ToNumber(POFMT))) return fail(PortDoesNotSuitFormat, "PORT", "POFMT");
  }
  return true;
}

// Each of the two indicators, also the one that the release does not go by, costs the link that is stored its ports.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    Value stored;
    if (!ReadLinkIndicator(action, fail, "VMFUI", stored)) return false;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      if ((name == "ICUIND" || name == "IFCIND") && !DeletePorts(action, stored)) return false;
      if (name == "POFMT" && !PortsSuit(action, fail, value)) return false;
      if (!UpdateColumnOrNull(action.CmdName, action.CmdId, name, value)) return fail(ColumnNotWritten, name);
    }
    return true;
  });
}

bool Delete(const Action& action) {
  const Reporter fail("Delete: " + action.CmdName);
  return InTransaction(fail, [&] {
    Value stored;
    if (!ReadLinkIndicator(action, fail, "VMFUI", stored)) return false;
    if (!DeleteRow(action.CmdName, action.CmdId)) return fail(RecordNotDeleted, action.CmdName, action.CmdId);
    return DeletePorts(action, stored);
  });
}

}  // namespace

extern const Module VMFUI{
    .SetInfo = GenericSetInfo,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .ValidValues = {{{"IFCIND", "ICUIND"}, ListIndicators}, {"POFMT", ListPOFMT}, {"VMF", GetValuesAndDescription}},
    .StatCheck = {{{"IFCIND", "ICUIND"}, CheckIndicator}},
};

}  // namespace cordboard
