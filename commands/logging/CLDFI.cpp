// CLDFI: files that calls are logged into, with their path and priority.

#include "script/Module.h"
#include "script/Report.h"
#include "shared/UsedFiles.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// The files that devices have.
bool ListFILE(const Action& action) {
  return scCollectSingleValues("SELECT FILE FROM EDDFI") || Reporter("GetValues")(ListNotBuilt, action.Parameter());
}

}  // namespace

extern const Module CLDFI{
    .SetInfo = AddFile,
    .EditInfo = EditFile,
    .DeleteInfo = DeleteFile,
    .ValidValues = {{"FILE", ListFILE}, {"PRIO", GetValuesAndDescription}},
};

}  // namespace cordboard
