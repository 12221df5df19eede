// EDDFI: which file a device takes.

#include "script/Conversions.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Count.h"
#include "shared/GenericRecord.h"

namespace cordboard {

namespace {

bool Refused(const Action& action) { return Reporter("GetValidValues")(ListNotBuilt, action.Parameter()); }

// The devices that have no file yet.
bool ListDEV(const Action& action) {
  return (scCollectSingleValues("SELECT DEV FROM EDEQI") && scSubtractSingleValues("SELECT DEV FROM EDDFI")) ||
         Refused(action);
}

// The first device chooses among all files; from then on all devices share the files that devices have.
bool ListFILE(const Action& action) {
  const bool first = Equals(UncheckedCount("SELECT COUNT(*) FROM EDDFI"), 0);
  return scCollectSingleValues(first ? "SELECT FILE FROM EDFII" : "SELECT DISTINCT FILE FROM EDDFI") || Refused(action);
}

}  // namespace

extern const Module EDDFI{
    .SetInfo = GenericSetInfo,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"DEV", ListDEV}, {"FILE", ListFILE}},
};

}  // namespace cordboard
