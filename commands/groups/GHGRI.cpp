// GHGRI: hunting groups: a number of type EX that a LIM carries.

#include "script/Module.h"
#include "shared/GroupHead.h"
#include "shared/Rechecks.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

const GroupKind kind{
    .columns = {"CMDID", "NUMTYP", "GRP", "TRAF", "SERV", "QUE", "CUST", "LIM", "SEL", "RLTC", "LOCATION",
                "DESCRIPTION"},
    .perSystem = 500,
    .perLIM = 100,
    .trace = AddTrace::Limits,
};

bool Add(const Action& action) { return AddGroupInLIM(action, kind); }

}  // namespace

extern const Module GHGRI{
    .SetInfo = Add,
    .EditInfo = EditGroupInLIM,
    .DeleteInfo = DeleteGroupInLIM,
    .ValidValues = {{"CUST", GetValuesFor_CUST},
                    {"GRP", GetValuesFor_EX},
                    {"LIM", GetValuesFor_LIM},
                    {"LOCATION", GetValuesFor_LOCATION},
                    {{"RLTC", "SEL_D1", "SEL_D2", "SEL_D3", "SEL_D4D5"}, GetValuesAndDescription},
                    {{"SERV_D1_SUB1", "SERV_D1_SUB2", "SERV_D2", "SERV_D3", "SERV_D4"}, GetValuesAndDescription}},
    .StatCheck = {{"LOCATION", StatCheck_LIM}},
};

}  // namespace cordboard
