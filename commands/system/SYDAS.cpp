// SYDAS: system data, one record for the whole exchange.

#include "script/Module.h"
#include "script/Statement.h"
#include "shared/GenericRecord.h"
#include "shared/SingleRecord.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// CNFREL is not among the old values. The edit does not miss it, since it reads none of them; the rewrite does: a
// second "SetInfo" fails at the sixth column, with the transaction open, before it has written anything.
std::string OldValues(const Action& action) {
  return Sql("SELECT NTC, PGJOB, PGSTA, DIVPRI, TBA FROM SYDAS WHERE CmdId = ", action.CmdId);
}

bool Rewrite(const Action& action) {
  return RewriteSingleRecord(action, OldValues(action), {"NTC", "PGJOB", "PGSTA", "DIVPRI", "TBA", "CNFREL"});
}

bool Set(const Action& action) { return SetSingleRecord(action, AddSingleRecord, Rewrite); }

bool Edit(const Action& action) { return EditSingleRecord(action, OldValues(action)); }

}  // namespace

extern const Module SYDAS{
    .SetInfo = Set,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{{"DIVPRI", "PGJOB", "PGSTA", "TBA", "CNFREL"}, GetValuesAndDescription}},
};

}  // namespace cordboard
