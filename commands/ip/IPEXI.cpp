// IPEXI: IP extensions: a directory number of GEDII, marked there with "IP", and the password of the telephone.

#include <algorithm>

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "script/Text.h"
#include "shared/DirectoryNumbers.h"

namespace cordboard {

namespace {

constexpr std::size_t longestPassword = 30;

bool IsPrintable(unsigned char c) { return c >= 33 && c <= 126; }

// A password without characters passes. Of what is wrong with any other the first thing alone is told.
bool CheckPassword(const Reporter& fail, const Value& PASSW) {
  const std::string text = ToText(PASSW);
  if (text.find_first_of(" '") != text.npos) return fail(QuoteInText, "PASSW");
  if (!std::ranges::all_of(text, IsPrintable)) return fail(ControlCharacterInText, "PASSW");
  return Length(text) <= longestPassword || fail(TextTooLong, "PASSW");
}

bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  action.ParamList.RequireBounds();  // before the transaction
  return InTransaction(fail, [&] {
    const Value PASSW = scGetParamValue("PASSW");
    return (PASSW.IsNull() || CheckPassword(fail, PASSW)) && InsertWithDirectoryNumber(action, fail, "DIR", "IP");
  });
}

// The password is checked whether it is edited or not. A null is read as a text here, and fails the call.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    return CheckPassword(fail, scGetParamValue("PASSW")) && EditWithDirectoryNumber(action, fail, "DIR", "IP");
  });
}

bool Delete(const Action& action) { return DeleteWithDirectoryNumber(action, "DIR"); }

// A password that is the empty text is written as such.
bool Generate(const Action& action) {
  return GenerateLines(action, "SELECT DIR,PASSW FROM IPEXI", [](const LineRow& row) {
    const Value PASSW = row[1];
    return Text("IPEXI:", UnlessNull("DIR=", row[0]), PASSW.IsNull() ? "" : Text(",PASSW=\"", PASSW, "\""), ";");
  });
}

}  // namespace

extern const Module IPEXI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{"DIR", ListFreeDirectoryNumbers}},
};

}  // namespace cordboard
