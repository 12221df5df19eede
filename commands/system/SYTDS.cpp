// SYTDS: system data with the pair CDNAS < CDNAL, one record for the whole exchange.

#include "script/Conversions.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/Rechecks.h"
#include "shared/SingleRecord.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

std::string OldValues(const Action& action) {
  return Sql("SELECT CDNAL, CDNAS, OPTL, PGIV, PGTNA, PGAL FROM SYTDS WHERE CmdId = ", action.CmdId);
}

bool Rewrite(const Action& action) {
  return RewriteSingleRecord(action, OldValues(action), {"CDNAL", "CDNAS", "OPTL", "PGIV", "PGTNA", "PGAL"});
}

bool Set(const Action& action) { return SetSingleRecord(action, AddSingleRecord, Rewrite); }

bool Edit(const Action& action) { return EditSingleRecord(action, OldValues(action)); }

// From 1 to 30, and above CDNAS where that is given.
bool CollectCDNAL() {
  if (!scPushValidRangeValues(1, 30)) return false;
  const Value CDNAS = scGetParamValue("CDNAS");
  return NumericValue(CDNAS) < 1 || scRemoveFromValidRangeValues("CDNAL", 1, CDNAS);
}

// From 1 to 30, and below CDNAL where that is given.
bool CollectCDNAS() {
  if (!scPushValidRangeValues(1, 30)) return false;
  const Value CDNAL = scGetParamValue("CDNAL");
  return NumericValue(CDNAL) < 1 || scRemoveFromValidRangeValues("CDNAS", CDNAL, 30);
}

bool ListCDNAL(const Action& action) { return CollectCDNAL() || ListRefused(action); }

bool ListCDNAS(const Action& action) { return CollectCDNAS() || ListRefused(action); }

// Drops CDNAS in silence when it is no longer below CDNAL, and puts it back as a number when it is.
bool CheckCDNAS(const Action& action) {
  return Revalidate(Reporter("StatCheck: " + action.CmdName), "CDNAS", ToInt16(scGetParamValue("CDNAS")));
}

}  // namespace

extern const Module SYTDS{
    .SetInfo = Set,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"CDNAL", ListCDNAL}, {"CDNAS", ListCDNAS}},
    .StatCheck = {{"CDNAS", CheckCDNAS}},
};

}  // namespace cordboard
