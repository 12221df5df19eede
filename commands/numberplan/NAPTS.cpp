// NAPTS: up to six positions for a number EXL, one by one in POS1 to POS6 and joined by "&" in POS.

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/GenericRecord.h"
#include "shared/Row.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

const List columns{"CmdID", "EXL", "POS", "POS1", "POS2", "POS3", "POS4", "POS5", "POS6"};
constexpr std::size_t indexOfPOS = 2;
constexpr std::size_t indexOfPOS1 = 3;

void TakePosition(List& values, std::size_t column, const Value& value) {
  values[column] = value;
  Debug(columns[column], " = ", value);
}

// The positions from the several values of POS. More than six fail the call.
bool TakePositionsOfPOS(const Reporter& fail, List& values) {
  List positions;
  if (!scGetValueArray("POS", positions)) return fail(ListNotBuilt, "POS");
  for (std::size_t i = 0; i < positions.size(); ++i) TakePosition(values, indexOfPOS1 + i, positions[i]);
  return true;
}

// The positions one by one from the form, and those that are given joined into POS.
void ReadPositions(List& values) {
  std::string joined;
  bool first = true;
  for (std::size_t column = indexOfPOS1; column < columns.size(); ++column) {
    TakePosition(values, column, scGetParamValue(ToText(columns[column])));
    if (values[column].IsEmpty()) continue;
    joined += Text(first ? "" : "&", values[column]);
    first = false;
  }
  values[indexOfPOS] = joined;
}

// One record for each value of EXL. A number that has a record already refuses the whole add, but those after it are
// still looked up and inserted, to be rolled back in the end; their single positions are then not read, which is
// reported. Any step that fails ends the add. A POS that was never given counts as the empty text.
bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  return InTransaction(fail, [&] {
    List numbers;
    if (!scGetValueArray("EXL", numbers)) return fail(ListNotBuilt, "EXL");
    bool flag = true;
    for (const Value& EXL : numbers) {
      Debug("EXL = ", EXL);
      RowSet rows;
      if (!scRunQuery(Sql("SELECT EXL FROM ", action.CmdName, NL, " WHERE EXL = '", EXL, "'"), rows))
        return fail(ListNotBuilt, "EXL");
      if (!rows.IsEmpty()) {
        fail(NumberInUse);
        Debug("That number series has already been used");
        flag = false;
        continue;
      }
      List values(std::vector<Value>(columns.size()));
      values[1] = EXL;
      TakePosition(values, indexOfPOS, scGetParamValue("POS"));
      if (!values[indexOfPOS].IsEmptyOrEmptyText()) {
        if (!TakePositionsOfPOS(fail, values)) return false;
      } else if (flag) {
        ReadPositions(values);
      } else {
        fail(ListNotBuilt, "POS");
      }
      values[0] = scBuildCmdID();
      if (!scSQLInsert(action.CmdName, columns, values)) return fail(InsertFailed, action.CmdName);
    }
    return flag;
  });
}

// The text of POS after an edit. An "&" stands between two neighbours that are both given. POS6 is never copied: with
// all six given the text ends in "&".
std::string JoinedPositions(const List& positions) {
  std::string text;
  for (std::size_t i = 0; i + 1 < positions.size(); ++i) {
    if (!positions[i].IsEmpty()) text += Text(positions[i], positions[i + 1].IsEmpty() ? "" : "&");
  }
  return text;
}

// Whatever the updates of the parameters gave, the answer is that of the update of POS.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      if (!UpdateColumn("NAPTS", action.CmdId, name, value)) fail(ColumnUpdateFailed, name, action.CmdName);
    }
    List positions;
    for (std::size_t column = indexOfPOS1; column < columns.size(); ++column)
      positions.Append(scGetParamValue(ToText(columns[column])));
    return UpdateColumn("NAPTS", action.CmdId, "POS", JoinedPositions(positions)) || fail(InsertFailed, action.CmdName);
  });
}

// A value chosen in one position leaves the lists of the five others, and the value that it had before comes back into
// all six. An empty previous value is pushed into the five others as well. Steps before the walk are not tested.
bool CheckPosition(const Action& action) {
  const std::string parameter = action.Parameter();
  if (!scGetParamValue(parameter).IsEmpty()) scSetParamOptional("POS", true);
  Value previous;
  scGetPreviousValue(previous);
  if (!previous.IsEmpty()) scPushValidValues(previous, parameter);
  const Value value = scGetParamValue(parameter);
  for (const char* other : {"POS1_D1D2", "POS2_D1D2", "POS3_D1D2", "POS4_D1D2", "POS5_D1D2", "POS6_D1D2"}) {
    if (other == parameter) continue;
    if (scRemoveFromValidValues(other, value) && scPushValidValues(previous, other)) continue;
    Reporter("StatCheck")(ResetFailed, other);
    if (parameter == "POS5_D1D2" || parameter == "POS6_D1D2") Debug(" Error Reseting the other Position values ");
    return false;
  }
  return true;
}

}  // namespace

extern const Module NAPTS{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{{"POS1_D3", "POS2_D3", "POS3_D3", "POS4_D3", "POS5_D3", "POS6_D3"}, GetValuesAndDescription}},
    .StatCheck = {{{"POS1_D1D2", "POS2_D1D2", "POS3_D1D2", "POS4_D1D2", "POS5_D1D2", "POS6_D1D2"}, CheckPosition}},
};

}  // namespace cordboard
