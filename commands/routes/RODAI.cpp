// RODAI: the data line of a route. The command's own table is written and never read: every route of ROCAI gets a line,
// from the values of its protocol, market and release.

#include "script/Conversions.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "shared/GenericRecord.h"
#include "shared/Routes.h"

namespace cordboard {

namespace {

// A record is skipped in silence where its look-up fails. One without values fails the call, and so does a null in
// them, but for FILTER.
bool Generate(const Action& action) {
  const auto line = [&](const LineRow& row) -> std::optional<std::string> {
    const auto [ROU, PROTOCOL, MARKET] = row.Texts<3>();
    RowSet data;
    if (!LookUpRouteData(action, "TYPE, VARI, VARO, VARC, FILTER", PROTOCOL, MARKET, data)) return std::nullopt;
    const std::string TYPE = ToText(data[0][0]);
    const std::string VARI = ToText(data[1][0]);
    const std::string VARO = ToText(data[2][0]);
    const std::string VARC = ToText(data[3][0]);
    return Text("RODAI:ROU=", ROU, UnlessBlank(",TYPE=", TYPE), UnlessBlank(",VARI=", VARI),
                UnlessBlank(",VARO=", VARO), UnlessBlank(",VARC=", VARC), UnlessBlank(",FILTER=", data[4][0]), ";");
  };
  return GenerateLines(action, "SELECT ROU, PROTOCOL, MARKET FROM ROCAI", line);
}

bool Add(const Action& action) { return AddRecord(action); }

}  // namespace

extern const Module RODAI{
    .SetInfo = Add,
    .GenerateCmd = Generate,
    .ValidValues = {{"ROU", GetFreeRoutes}},
};

}  // namespace cordboard
