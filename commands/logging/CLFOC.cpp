// CLFOC: output formats of call logging: which data of a call stand in a line of the log, where, and how long. A format
// has up to forty items, each in a column of its own and all of them joined in DATA.

#include <algorithm>
#include <string_view>

#include "commands/logging/CLFOC_Edit.h"
#include "commands/logging/CLFOC_Items.h"
#include "script/Envelope.h"
#include "script/Generate.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/Count.h"
#include "shared/GenericRecord.h"
#include "shared/Rechecks.h"
#include "shared/ValueLists.h"

namespace cordboard {

namespace {

// --- Lists. None reports a step that is refused.

bool ListFORM(const Action&) { return PushWholeNumbers(0, 6) && scSubtractSingleValues("SELECT FORM FROM CLFOC"); }

// The values are their own places in the list, and so the first place is left empty.
bool PushPositions() {
  List positions{Value()};
  for (std::size_t position = 1; position <= NumberOfItems; ++position) positions.Append(position);
  return scPushValidValues(positions);
}

// The position with which an item begins, in one digit or two. A null has none: the empty text is taken out then.
std::string PositionOf(const Value& item) {
  const std::string text = Joined(item);
  return Left(text, Middle(text, 3, 1) == "-" ? 2 : 1);
}

// Takes out the position that this item has so far. Those of the other items stay.
bool ListPosition(const Action& action) {
  const std::string parameter = action.Parameter();
  const Value FORM = scGetParamValue("FORM");
  if (!PushPositions()) return false;
  if (FORM.IsBlank()) return true;
  RowSet rows;
  if (!scRunQuery(Sql("SELECT ", ItemOfNumber(parameter), " FROM CLFOC WHERE FORM = '", FORM, "'"), rows)) return false;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    if (!scRemoveFromValidValues(parameter, PositionOf(rows[0][row]))) return false;
  }
  return true;
}

struct Lengths {
  std::string_view letters;
  int lowest;
  int highest;
};

constexpr Lengths lengthsOfKinds[] = {{"ABC", 1, 5},  {"D", 1, 15}, {"EGM", 1, 20}, {"F", 1, 6},   {"H", 1, 1},
                                      {"I", 2, 2},    {"JP", 4, 4}, {"K", 4, 5},    {"LOR", 1, 2}, {"N", 1, 4},
                                      {"QSXY", 1, 3}, {"T", 1, 9},  {"UVW", 1, 10}, {"Z", 3, 3}};

Lengths LengthsOf(const Value& kind) {
  const std::string letter = Joined(kind);
  const auto* found = std::ranges::find_if(lengthsOfKinds, [&](const Lengths& lengths) {
    return letter.size() == 1 && lengths.letters.find(letter) != lengths.letters.npos;
  });
  return found == std::end(lengthsOfKinds) ? Lengths{"", 1, 20} : *found;
}

bool ListLength(const Action& action) {
  const Lengths lengths = LengthsOf(scGetParamValue(ItemOfNumber(action.Parameter()) + "_D5"));
  return scPushValidRangeValues(lengths.lowest, lengths.highest);
}

// The fixed values stand under the name of the first item, for all forty.
bool ListKind(const Action&) {
  return scCollectValuesAndDesc(
      "SELECT Value, ValDesc FROM ParamValueDesc WHERE Command = 'CLFOC' AND Param = 'DATA1_D5' ");
}

// --- Checks.

// Resets one position more than there are items. What the form answers for that one is the answer, where all others
// are reset; nothing is reported.
bool CheckFORM(const Action&) {
  for (std::size_t number = 1; number <= NumberOfItems + 1; ++number) {
    if (!scResetParam(ItemName(number) + "_D1D2")) return false;
  }
  return true;
}

// An item that is given by its digits makes a value of DATA unnecessary.
bool CheckKind(const Action& action) {
  const std::string parameter = action.Parameter();
  const std::string length = ItemOfLetter(parameter) + "_D3D4";
  if (!Revalidate(Reporter("Reset"), length, scGetParamValue(length))) return false;
  return !IsChosen(scGetParamValue(parameter)) || scSetParamOptional("DATA", true);
}

// --- Add.

// The items that the form has one by one. A sign stands in front of each, in front of the first as well.
std::string JoinedItems() {
  std::string joined;
  for (std::size_t number = 1; number <= NumberOfItems; ++number)
    joined += UnlessBlank("&", scGetParamValue(ItemName(number)));
  return joined;
}

// The values of DATA by their places from 1. There are places for forty: more fail the call.
bool ReadItems(const Reporter& fail, List& items) {
  List values;
  if (!scGetValueArray("DATA", values)) return fail(ListNotBuilt, "DATA");
  items = List(std::vector<Value>(NumberOfItems + 1));
  std::size_t number = 0;
  for (const Value& value : values) items[++number] = value;
  return true;
}

// The item of a column by the number at the end of the column's name: its last two characters, or its last one where
// the two are no number. A name without the number of an item has no value.
Value ItemOfColumn(const std::string& column, const List& items) {
  const std::string end = Right(column, IsNumeric(Right(column, 2)) ? 2 : 1);
  for (std::size_t number = 1; number <= NumberOfItems; ++number) {
    if (end == Text(number)) return items[number];
  }
  return Value();
}

// `items` was never filled where the form has the items one by one.
Value ValueFor(const std::string& column, const std::string& joined, const List& items) {
  if (column == "CMDID") return scBuildCmdID();
  if (column != "DATA" && column.find("DATA") != column.npos && !items.IsEmpty()) return ItemOfColumn(column, items);
  const Value value = scGetParamValue(column);
  return column == "DATA" && value.IsBlank() ? Value(joined) : value;
}

// The answer of the count is not looked at.
bool IsNewFORM(const Reporter& fail, const Value& FORM) {
  const Value count = UncheckedCount(Sql("SELECT COUNT(*) FROM CLFOC WHERE FORM = '", FORM, "'"));
  return !Differs(count, 0) || fail(KeyExistsAlready, "FORM");
}

bool AddFormat(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  const List& columns = action.ParamList;
  columns.RequireBounds();  // before the transaction
  return InTransaction(fail, [&] {
    std::string joined = Joined(scGetParamValue("DATA"));
    List items;
    if (joined.empty()) {
      joined = JoinedItems();
    } else if (!ReadItems(fail, items)) {
      return false;
    }
    List record(std::vector<Value>{});
    Value FORM;
    bool appends = false;
    for (const Value& column : columns) {
      const std::string name = ToText(column);
      const Value value = ValueFor(name, joined, items);
      record.Append(value);
      if (name == "FORM") FORM = value;
      if (name == "APPEND" && IsChosen(value)) appends = true;
    }
    if (!appends && !IsNewFORM(fail, FORM)) return false;
    return scSQLInsert(action.CmdName, columns, record) || fail(InsertFailed, action.CmdName);
  });
}

// With any APPEND, "NO" as well, a format that exists grows. One that cannot be looked up ends the add in silence.
bool Add(const Action& action) {
  const Value FORM = scGetParamValue("FORM");
  const Value APPEND = scGetParamValue("APPEND");
  RowSet rows;
  if (!scRunQuery(Sql("SELECT CMDID FROM CLFOC WHERE FORM = '", FORM, "'"), rows)) return false;
  if (rows.IsEmpty() || !IsChosen(APPEND)) return AddFormat(action);
  return AppendToFormat(action, ToInt32(NumericValue(rows[0][0])));
}

// --- Generate.

constexpr std::size_t longestDATA = 160;
constexpr std::size_t itemsOfFirstLine = 25;

// The items from the one to the other, without those that are blank.
std::string Items(const LineRow& row, std::size_t from, std::size_t to) {
  constexpr std::size_t columnBeforeItems = 4;
  std::string items;
  for (std::size_t number = from; number <= to; ++number) {
    const Value& item = row.Stored(columnBeforeItems + number);
    if (!item.IsBlank()) items += Text(items.empty() ? "" : "&", item);
  }
  return items;
}

// DATA goes out as it is stored. One that is too long for a line is made anew from the items: the first 25, and the
// others on a second line that appends to the first, even where there are none. All forty items are read of any row, so
// that one that is too short fails the call.
std::vector<std::string> Lines(const LineRow& row) {
  const Value FORM = row[1];
  const std::string DATA = Joined(row.Stored(2));
  const std::string first = Items(row, 1, itemsOfFirstLine);
  const std::string others = Items(row, itemsOfFirstLine + 1, NumberOfItems);
  if (FORM.IsBlank()) return {};
  const std::string start = Text("CLFOC:FORM=", FORM);
  if (DATA.empty()) return {start + ";"};
  if (Length(DATA) <= longestDATA) return {Text(start, ",DATA=", DATA, ";")};
  return {Text(start, ",DATA=", first, ";"), Text(start, ",DATA=", others, ",APPEND=YES;")};
}

// The forms 0 to 3 are the exchange's own and never generated. A line is inserted with line ends of its own and another
// message than usual; one that is not inserted keeps back the second of its format, but not the next format.
bool Generate(const Action& action) {
  const Reporter fail("Generating: " + action.CmdName);
  RowSet rows;
  bool flag = scRunQuery(Sql("SELECT * FROM ", action.CmdName, NL, "WHERE FORM NOT IN ('0','1','2','3')"), rows) ||
              fail(StatementFailed);
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const std::vector<std::string> lines = Lines(LineRow(rows, row));
    for (std::size_t i = 0; i < lines.size() && (i == 0 || flag); ++i) {
      flag = scRunQuery(Sql("INSERT INTO BuiltCmd ", NL, " VALUES (", action.OrderNumber(), ",'", lines[i], "')")) ||
             fail(StatementFailed);
    }
  }
  return flag;
}

}  // namespace

extern const Module CLFOC{
    .SetInfo = Add,
    .EditInfo = EditFormat,
    .DeleteInfo = GenericDeleteInfo,
    .GenerateCmd = Generate,
    .ValidValues = {{"FORM", ListFORM},
                    {OfEveryItem("_D1D2"), ListPosition},
                    {OfEveryItem("_D3D4"), ListLength},
                    {OfEveryItem("_D5"), ListKind}},
    .StatCheck = {{"FORM", CheckFORM}, {OfEveryItem("_D5"), CheckKind}},
};

}  // namespace cordboard
