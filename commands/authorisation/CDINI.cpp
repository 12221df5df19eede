// CDINI: a division text DIV for each directory number.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Text.h"
#include "shared/GenericRecord.h"
#include "shared/Record.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

constexpr std::size_t longestDIV = 10;

// One record for each number, without a transaction: those before a failure stay. A text that is too long writes a
// debug line in the place of a message; the numbers after it still take an identifier, but no record. Numbers that
// cannot be delivered end the add in silence.
bool Add(const Action&) {
  const List columns{"CMDID", "NUMTYP", "DIR", "DIV", "DESCRIPTION"};
  List numbers;
  if (!scGetValueArray("DIR", numbers)) return false;
  bool flag = true;
  for (const Value& DIR : numbers) {
    const List record = Record(columns, {{"NUMTYP", "EX"}, {"DIR", DIR}});
    if (Length(Joined(ValueOf("DIV", columns, record))) > longestDIV) {
      Debug(" The parameter DIV can be only 10 characters maximum");
      flag = false;
    }
    if (flag && !scSQLInsert("CDINI", columns, record))
      return Reporter("bReturn - CDINI")(InsertRefused, "CDINI", "CDINI");
  }
  return flag;
}

// An update that fails does not end the edit: the answer is that of the last one. The length of DIV is not looked at.
bool Edit(const Action& action) {
  const Reporter fail("CDINI - bReturn");
  return InTransaction(fail, [&] {
    bool flag = true;
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      flag = UpdateColumn("CDINI", action.CmdId, name, scGetParamValue(name)) ||
             fail(ColumnUpdateFailed, name, action.CmdName);
    }
    return flag;
  });
}

// The numbers of extensions and groups that have no text. The list begins with what the host holds.
bool ListDIR(const Action& action) {
  const auto addExtensions = [](const char* table) {
    return scAddSingleValues(Sql("SELECT DIR", NL, " FROM ", table, NL, " WHERE NUMTYP = 'EX'", NL, " ORDER BY DIR"));
  };
  return (addExtensions("EXTEIDIR") && addExtensions("ITNUI") && addExtensions("KSEXI") &&
          scAddSingleValues("SELECT GRP FROM GHGRI") && scAddSingleValues("SELECT GRP FROM CBELI") &&
          scAddSingleValues(Sql("SELECT AUX FROM EXTEIAUX", NL, " ORDER BY AUX")) &&
          scAddSingleValues(Sql("SELECT ADN FROM KSANI", NL, " ORDER BY ADN")) &&
          scSubtractSingleValues("SELECT DIR FROM CDINI")) ||
         ListRefused(action);
}

}  // namespace

extern const Module CDINI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"DIR", ListDIR}},
};

}  // namespace cordboard
