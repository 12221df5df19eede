// GESPI: service profiles, each named by a number CSP.

#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// Profile 0 has to stand before any other can be chosen.
bool ListCSP(const Action& action) {
  const Reporter fail("GetValidValueFor: " + action.Parameter());
  RowSet profile0;
  if (!scRunQuery(Sql(" SELECT CSP FROM GESPI ", NL, " WHERE CSP = '0' "), profile0)) return fail(StatementFailed);
  return (PushWholeNumbers(0, profile0.IsEmpty() ? 0 : 256) && scSubtractSingleValues(" SELECT CSP FROM GESPI")) ||
         fail(ListNotBuilt, action.Parameter());
}

}  // namespace

extern const Module GESPI{
    .SetInfo = GenericSetInfo,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues =
        {{"CSP", ListCSP},
         {{"CDIV_D1", "CDIV_D2D3", "CDIV_D4", "CDIV_D5", "CDIV_D6", "CDIV_D7", "CDIV_D8"}, GetValuesAndDescription},
         {{"NPRES_D1", "NPRES_D2", "NPRES_D3"}, GetValuesAndDescription},
         {{"ROC_D2", "ROC_D3", "ROC_D4", "ROC_D5D6"}, GetValuesAndDescription},
         {{"SERV_D1", "SERV_D2D3_SUB1", "SERV_D2D3_SUB2", "SERV_D4D5_SUB1", "SERV_D4D5_SUB2"}, GetValuesAndDescription},
         {{"SERV_D6", "SERV_D7", "SERV_D8", "SERV_D9_SUB1", "SERV_D9_SUB2", "SERV_D10", "SERV_D11", "SERV_D12"},
          GetValuesAndDescription},
         {{"TRAF_D1", "TRAF_D2", "TRAF_D3"}, GetValuesAndDescription}},
};

}  // namespace cordboard
