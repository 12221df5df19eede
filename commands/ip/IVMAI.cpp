// IVMAI: integrated voice mail: a system on a board of its own, under a directory number of GEDII that is marked there
// with "IVM".

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/BoardPositions.h"
#include "shared/DirectoryNumbers.h"

namespace cordboard {

namespace {

bool ListBPOS(const Action& action) { return ListBoardPositions(action, "112", " SELECT BPOS FROM IVMAI"); }

bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  action.ParamList.RequireBounds();  // before the transaction
  return InTransaction(fail, [&] { return InsertWithDirectoryNumber(action, fail, "VSD", "IVM"); });
}

bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] { return EditWithDirectoryNumber(action, fail, "VSD", "IVM"); });
}

// The extensions that IVBOI has attached stay.
bool Delete(const Action& action) { return DeleteWithDirectoryNumber(action, "VSD"); }

// The position without the zeros in front of its LIM, two at most.
std::string ShortPosition(const std::string& BPOS) {
  return BPOS.substr(BPOS.starts_with("00") ? 2 : BPOS.starts_with("0") ? 1 : 0);
}

// The individuals of the board, from 0: a position for none as for one. A number of them that is no number fails the
// call, and the lines before it stay.
std::string Individuals(const Value& BPOS, const Value& NOIND) {
  if (BPOS.IsNull() || NOIND.IsNull()) return "";
  const std::string position = ShortPosition(ToText(BPOS));
  const double count = ToNumber(NOIND);
  const std::string first = Text(",EQU=", position, "-0");
  return count > 1 ? Text(first, "&&", position, "-", count - 1) : first;
}

bool Generate(const Action& action) {
  return GenerateLines(action, "SELECT VSD,BPOS,NOIND,SID FROM IVMAI", [](const LineRow& row) {
    return Text("IVMAI:", UnlessNull("VSD=", row[0]), Individuals(row[1], row[2]), UnlessNull(",SID=", row[3]), ";");
  });
}

}  // namespace

extern const Module IVMAI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = Delete,
    .GenerateCmd = Generate,
    .ValidValues = {{"VSD", ListFreeDirectoryNumbers}, {"BPOS", ListBPOS}},
};

}  // namespace cordboard
