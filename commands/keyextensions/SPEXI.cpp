// SPEXI: speed options: what the exchange dials by itself for a number that another command has set up. OPT holds the
// letters of the options with a separator between each two.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/GenericRecord.h"
#include "shared/Rechecks.h"
#include "shared/Record.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists and checks.

// The first option decides which numbers are offered, less those that have a record. Only the last step counts: a list
// that could not be collected goes unseen.
bool ListDIR(const Action& action) {
  const Value OPT = scGetParamValue("OPT");
  if (OPT.IsNull()) return Reporter("GetValuesFor: " + action.Parameter())(ListNotBuilt, "OPT");
  const std::string first = Left(ToText(OPT), 1);
  scCollectSingleValues(" SELECT DIR FROM EXTEIDIR ");
  if (first == "E") {
    scAddSingleValues(" SELECT ADN FROM KSANI ");
    scAddSingleValues(" SELECT DIR FROM CXAKI ");
    scSubtractSingleValues(" SELECT DIR FROM PELPI ");
  } else if (first != "A") {
    scAddSingleValues(" SELECT DIR FROM KSEXI ");
    scAddSingleValues(" SELECT DIR FROM CXAKI ");
    scAddSingleValues(" SELECT DIR FROM ITNUI ");
    scAddSingleValues(" SELECT ADN FROM KSANI ");
  }
  return scSubtractSingleValues(" SELECT DIR FROM SPEXI ") || ListRefused(action);
}

// The options N and D exclude each other: the one leaves the list while the other is chosen, and comes back when it is
// not.
void Rebalance(const char* letter, const char* other, const List& list, const List& chosen) {
  const bool otherIsChosen = IsValueInList(other, chosen);
  const bool isListed = IsValueInList(letter, list);
  if (!otherIsChosen && !isListed) scPushValidValues(letter, "OPT");
  if (otherIsChosen && isListed) scRemoveFromValidValues("OPT", letter);
}

// An option besides N and D. A list that cannot be read, or holds nothing, is left as it is.
bool CheckOtherLetter(const Reporter& fail, const std::string& text) {
  if (text.find_first_of("ND") == text.npos) scSetParamOptional("NDC", true);
  List list;
  if (!scGetValidValues("OPT", list)) {
    Debug("scGetValidValues failed");
    return true;
  }
  if (list.IsEmpty() || list.size() == 0) {
    Debug("No options specified");
    return true;
  }
  List chosen;
  if (!scGetValueArray("OPT", chosen)) return fail(ListNotBuilt, "OPT");
  Rebalance("N", "D", list, chosen);
  Rebalance("D", "N", list, chosen);
  return true;
}

// N or D makes NDC mandatory and takes the other one out of the list, but not where it was all that was chosen before.
void CheckExcludingLetter(const std::string& letter, const Value& previous) {
  if (!Differs(letter, previous)) return;
  scSetParamOptional("NDC", false);
  scRemoveFromValidValues("OPT", letter == "N" ? "D" : "N");
}

// Walks the letters, every second character. Each resets DIR and puts it back, so that its list follows. Without any
// letter nothing changes: NDC stays mandatory where it was.
bool CheckOPT(const Action& action) {
  const Reporter fail("StatCheck: " + action.CmdName);
  const std::string text = Joined(scGetParamValue("OPT"));
  const Value DIR = scGetParamValue("DIR");
  Value previous;
  scGetPreviousValue(previous);
  const std::size_t letters = (Length(text) + 1) / 2;
  for (std::size_t i = 0; i < letters; ++i) {
    const std::string letter = Middle(text, static_cast<std::ptrdiff_t>(2 * i + 1), 1);
    if (!scResetParam("DIR") || !scSetParamValue("DIR", DIR)) return fail(ResetFailed, "DIR");
    if (letter == "N" || letter == "D") {
      CheckExcludingLetter(letter, previous);
    } else if (!CheckOtherLetter(fail, text)) {
      return false;
    }
  }
  return true;
}

// --- Add.

// One record for each number. The number is in use already, so that nothing is marked.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List numbers;
    if (!scGetValueArray("DIR", numbers)) return fail(ListNotBuilt, "DIR");
    for (const Value& DIR : numbers) {
      const List record = Record(action.ParamList, {{"NUMTYP", "EX"}, {"DIR", DIR}});
      if (!scSQLInsert(action.CmdName, action.ParamList, record)) return fail(InsertFailed, action.CmdName);
    }
    return true;
  });
}

}  // namespace

extern const Module SPEXI{
    .SetInfo = Add,
    .EditInfo = GenericEditInfo,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"DIR", ListDIR}, {"OPT", GetValuesAndDescription}},
    .StatCheck = {{"OPT", CheckOPT}},
};

}  // namespace cordboard
