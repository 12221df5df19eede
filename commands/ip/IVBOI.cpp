// IVBOI: mailboxes: the extensions that use an integrated voice mail system, with category and language. No lines are
// generated.

#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

bool ListVSD(const Action&) { return scCollectSingleValues("SELECT VSD FROM IVMAI"); }

// Every extension without a mailbox; the first step that fails ends the list.
bool ListDIR(const Action& action) {
  const bool built = scCollectSingleValues("SELECT DIR FROM EXTEIDIR ORDER BY DIR") &&
                     scAddSingleValues("SELECT DIR FROM KSEXI ORDER BY DIR") &&
                     scAddSingleValues("SELECT DIR FROM ITNUI ORDER BY DIR") &&
                     scAddSingleValues("SELECT DIR FROM CXAKI ORDER BY DIR") &&
                     scSubtractSingleValues("SELECT DIR FROM IVBOI ORDER BY DIR");
  return built || Reporter(action.Parameter() + "GetValue : ")(ListNotBuilt, "DIR");
}

}  // namespace

extern const Module IVBOI{
    .SetInfo = GenericSetInfo,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"VSD", ListVSD}, {"DIR", ListDIR}, {{"VCAT", "LANG"}, GetValuesAndDescription}},
};

}  // namespace cordboard
