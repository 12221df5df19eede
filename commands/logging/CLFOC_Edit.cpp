#include "commands/logging/CLFOC_Edit.h"

#include "commands/logging/CLFOC_Items.h"
#include "script/Envelope.h"
#include "script/Report.h"
#include "shared/Row.h"

namespace cordboard {

namespace {

// The statement has no WHERE: it sets an item in every format of the table.
bool WriteItem(std::size_t number, const Value& item) {
  return scRunQuery(Sql("UPDATE CLFOC SET ", ItemName(number), " = '", item, "'", NL));
}

// Each value of DATA becomes the item of its place. `name` is made where an item is refused, to be reported.
template <typename Name>
bool WriteItems(const Reporter& fail, Name name) {
  List items;
  if (!scGetValueArray("DATA", items)) return fail(ListNotBuilt, "DATA");
  std::size_t number = 0;
  for (const Value& item : items) {
    if (!WriteItem(++number, item)) return fail(ColumnNotWritten, name());
  }
  return true;
}

bool WriteColumn(const Action& action, const Reporter& fail, std::int32_t CmdId, const std::string& name,
                 const Value& value) {
  return UpdateColumnOrNull(action.CmdName, CmdId, name, value) || fail(ColumnNotWritten, name);
}

// What is given, or else what was stored. Items that are given come behind those that were stored.
Value GivenOrStored(const std::string& name, const Value& given, const RowSet& stored, std::size_t column) {
  if (name == "DATA" && !given.IsBlank()) return Text(stored[column][0], "&", given);
  return given.IsBlank() ? stored[column][0] : given;
}

}  // namespace

bool EditFormat(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    for (const Value& parameter : action.ParamList) {
      const std::string name = ToText(parameter);
      const Value value = scGetParamValue(name);
      if (name == "DATA" && !WriteItems(fail, [&] { return Value(name); })) return false;
      if (!WriteColumn(action, fail, action.CmdId, name, value)) return false;
    }
    return true;
  });
}

// The items that are written are those that the form gives for the joined DATA, numbered from 1. An item that is
// refused is reported under the name that ParamList has in the place of DATA in the list here, whatever that is. What
// is stored is read where it is used, so that a record that is missing fails the call there; one that cannot be read,
// and a DATA that cannot be set, end the append in silence.
bool AppendToFormat(const Action& action, std::int32_t CmdId) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    const std::string names[] = {"FORM", "DATA", "DESCRIPTION"};
    RowSet stored;
    if (!scRunQuery(Sql("SELECT FORM, DATA, DESCRIPTION FROM CLFOC WHERE CmdId = ", CmdId), stored)) return false;
    for (std::size_t place = 0; place < std::size(names); ++place) {
      const std::string& name = names[place];
      const Value value = GivenOrStored(name, scGetParamValue(name), stored, place);
      if (name == "DATA") {
        if (!scSetParamValue("DATA", value)) return false;
        if (!WriteItems(fail, [&] { return action.ParamList[place]; })) return false;
      }
      if (!WriteColumn(action, fail, CmdId, name, value.IsBlank() ? Value() : value)) return false;
    }
    return true;
  });
}

}  // namespace cordboard
