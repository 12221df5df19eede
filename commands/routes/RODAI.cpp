// RODAI: the data line of a route. The command's own table is written and never read: every route of ROCAI gets a line,
// from the values of its protocol, market and release.

#include "script/Conversions.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Routes.h"

namespace cordboard {

namespace {

// A record is skipped in silence where its look-up fails. One without values fails the call, and so does a null in
// them, but for FILTER. The answer is that of the last insert.
bool Generate(const Action& action) {
  const std::string context = "Generating: " + action.CmdName;
  RowSet rows;
  bool flag = OrReport(scRunQuery("SELECT ROU, PROTOCOL, MARKET FROM ROCAI", rows), context, Message::GenerationFailed);
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const auto [ROU, PROTOCOL, MARKET] = TrimmedRow<3>(rows, row);
    RowSet data;
    if (!LookUpRouteData(action, "TYPE, VARI, VARO, VARC, FILTER", PROTOCOL, MARKET, data)) continue;
    const std::string TYPE = ToText(data[0][0]);
    const std::string VARI = ToText(data[1][0]);
    const std::string VARO = ToText(data[2][0]);
    const std::string VARC = ToText(data[3][0]);
    const std::string line =
        Text("RODAI:ROU=", ROU, UnlessBlank(",TYPE=", TYPE), UnlessBlank(",VARI=", VARI), UnlessBlank(",VARO=", VARO),
             UnlessBlank(",VARC=", VARC), UnlessBlank(",FILTER=", data[4][0]), ";");
    flag = OrReport(InsertBuiltCmd(action, line), context, Message::GenerationFailed);
  }
  return flag;
}

}  // namespace

extern const Module RODAI{
    .SetInfo = AddFromForm,
    .GenerateCmd = Generate,
    .ValidValues = {{"ROU", GetFreeRoutes}},
};

}  // namespace cordboard
