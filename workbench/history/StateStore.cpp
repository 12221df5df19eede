#include "workbench/history/StateStore.h"

#include <array>

#include "script/Conversions.h"
#include "workbench/system/Signals.h"
#include "workbench/system/User.h"

namespace cordboard::workbench {

namespace {

// The words of the kinds, in their order.
constexpr std::array<const char*, 7> words = {"new", "start", "apply", "plant", "undo", "redo", "outside"};

StateKind KindNamed(const std::string& word) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (word == words[i]) return static_cast<StateKind>(i);
  }
  throw DatabaseError("the history of the exchange has a state of an unknown kind: " + word);
}

State StateOf(const RowSet& rows, std::size_t row) {
  const auto text = [&](std::size_t column) { return Joined(rows[column][row]); };
  const auto count = [&](std::size_t column) { return static_cast<std::size_t>(rows[column][row].number()); };
  return {.number = ToInt32(rows[0][row]),
          .note = {.kind = KindNamed(text(1)),
                   .message = text(2),
                   .lines = count(3),
                   .added = count(4),
                   .changed = count(5),
                   .removed = count(6),
                   .of = ToInt32(rows[7][row])},
          .time = text(8),
          .user = text(9),
          .mark = text(10),
          .timesWritten = static_cast<std::uint32_t>(rows[11][row].number())};
}

constexpr const char* select =
    "SELECT [Number], [Kind], [Message], [Lines], [Added], [Changed], [Removed], [Of], [Time], [User], [Mark], "
    "[TimesWritten] FROM [Cordboard.States] ";

}  // namespace

std::string Named(StateKind kind) { return words.at(static_cast<std::size_t>(kind)); }

bool StateStore::Exists() const {
  return !connection_.Single("SELECT 1 FROM [main].sqlite_master WHERE [name] = 'Cordboard.States'").IsEmpty();
}

void StateStore::Make() {
  connection_.Execute(
      "CREATE TABLE [Cordboard.States] ([Number] INTEGER PRIMARY KEY, [Kind] TEXT, [Message] TEXT, [Lines] INTEGER, "
      "[Added] INTEGER, [Changed] INTEGER, [Removed] INTEGER, [Of] INTEGER, [Time] TEXT, [User] TEXT, [Mark] TEXT, "
      "[TimesWritten] INTEGER, [CmdId] INTEGER);"
      "CREATE TABLE [Cordboard.Changes] ([State] INTEGER, [Table] TEXT, [Rows] BLOB, [Sum] TEXT);"
      "CREATE INDEX [Cordboard.Changes by State] ON [Cordboard.Changes] ([State]);"
      "CREATE TABLE [Cordboard.Plans] ([State] INTEGER, [Plan] TEXT, [Text] TEXT);"
      "CREATE INDEX [Cordboard.Plans by State] ON [Cordboard.Plans] ([State])");
}

std::vector<State> StateStore::All() const {
  const RowSet rows = connection_.Run(std::string(select) + "ORDER BY [Number]");
  std::vector<State> states;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    State& state = states.emplace_back(StateOf(rows, row));
    const RowSet plans = connection_.Run(
        "SELECT [Plan] FROM [Cordboard.Plans] WHERE [State] = ? GROUP BY [Plan] ORDER BY MIN(rowid)", {state.number});
    for (std::size_t plan = 0; plan < plans.RowCount(); ++plan) state.plans.push_back(Joined(plans[0][plan]));
  }
  return states;
}

State StateStore::Newest() const {
  const RowSet rows = connection_.Run(std::string(select) + "ORDER BY [Number] DESC LIMIT 1");
  if (rows.IsEmpty()) throw DatabaseError("the history of the exchange is damaged: it has no state");
  return StateOf(rows, 0);
}

// Where somebody has written the file who keeps no history, it is told by how often it was written.
std::string StateStore::Mark() const {
  const std::uint32_t times = connection_.TimesWritten();
  if (!Exists()) return std::to_string(times);
  const State newest = Newest();
  return newest.timesWritten == times ? newest.mark : newest.mark + "." + std::to_string(times);
}

void StateStore::Add(int number, const StateNote& note, const Value& CmdId) {
  connection_.Run(
      "INSERT INTO [Cordboard.States] VALUES "
      "(?, ?, ?, ?, ?, ?, ?, ?, strftime('%Y-%m-%dT%H:%M:%SZ', 'now'), ?, lower(hex(randomblob(8))), ?, ?)",
      {number, Named(note.kind), note.message, note.lines, note.added, note.changed, note.removed, note.of,
       CurrentUser(), connection_.TimesWrittenAfterCommit(), CmdId});
}

void StateStore::Confirm() {
  connection_.Run(
      "UPDATE [Cordboard.States] SET [TimesWritten] = ? WHERE [Number] = (SELECT MAX([Number]) FROM "
      "[Cordboard.States])",
      {connection_.TimesWrittenAfterCommit()});
}

void StateStore::Drop(int number) {
  connection_.Run("DELETE FROM [Cordboard.States] WHERE [Number] = ?", {number});
  connection_.Run("DELETE FROM [Cordboard.Changes] WHERE [State] = ?", {number});
  connection_.Run("DELETE FROM [Cordboard.Plans] WHERE [State] = ?", {number});
}

void StateStore::AddRows(int state, const RowBlock& rows) {
  connection_.Run("INSERT INTO [Cordboard.Changes] ([State], [Table], [Rows]) VALUES (?, ?, CAST(? AS BLOB))",
                  {state, rows.table, rows.rows});
}

void StateStore::AddText(int state, const std::string& plan, const std::string& text) {
  connection_.Run("INSERT INTO [Cordboard.Plans] VALUES (?, ?, ?)", {state, plan, text});
}

// One block at a time, since all of them may be large.
void StateStore::EachBlock(int state, const TakeRows& take) const {
  const RowSet places =
      connection_.Run("SELECT rowid FROM [Cordboard.Changes] WHERE [State] = ? ORDER BY rowid", {state});
  for (std::size_t i = 0; i < places.RowCount(); ++i) {
    EndOnSignal();
    const RowSet found =
        connection_.Run("SELECT [Table], [Rows], [Sum] FROM [Cordboard.Changes] WHERE rowid = ?", {places[0][i]});
    take(places[0][i], {Joined(found[0][0]), Joined(found[1][0])}, Joined(found[2][0]));
  }
}

bool StateStore::SumUp(int state) {
  bool differs = false;
  EachBlock(state, [&](const Value& place, const RowBlock& rows, const std::string&) {
    const BlockOfRows::Now now = BlockOfRows(connection_, rows).Look();
    differs = differs || now.differs;
    connection_.Run("UPDATE [Cordboard.Changes] SET [Sum] = ? WHERE rowid = ?", {now.sum, place});
  });
  return differs;
}

// All rows are out before one comes in, so that none meets another that it never stood beside.
void StateStore::TakeBack(int state) {
  EachBlock(state, [&](const Value&, const RowBlock& rows, const std::string& sum) {
    BlockOfRows block(connection_, rows);
    if (block.Look().sum != sum)
      throw HistoryError("the exchange is not as its state " + std::to_string(state) + " has left it: rows of " +
                         rows.table + " are not what they were; nothing was taken back");
    block.Remove();
  });
  EachBlock(state,
            [&](const Value&, const RowBlock& rows, const std::string&) { BlockOfRows(connection_, rows).PutBack(); });
  EachBlock(state, [&](const Value&, const RowBlock& rows, const std::string&) {
    if (BlockOfRows(connection_, rows).Look().differs)
      throw HistoryError("rows of " + rows.table + " could not be put back as they were; nothing was taken back");
  });
  connection_.Run(
      "UPDATE [Cordboard] SET [Value] = (SELECT [CmdId] FROM [Cordboard.States] WHERE [Number] = ?) "
      "WHERE [Name] = 'CmdId'",
      {state});
}

void StateStore::ReadTexts(int state, const TakeText& take) const {
  const RowSet pieces =
      connection_.Run("SELECT [Plan], [Text] FROM [Cordboard.Plans] WHERE [State] = ? ORDER BY rowid", {state});
  for (std::size_t i = 0; i < pieces.RowCount(); ++i) take(Joined(pieces[0][i]), Joined(pieces[1][i]));
}

Value StateStore::CmdId() const { return connection_.Single("SELECT [Value] FROM [Cordboard] WHERE [Name] = 'CmdId'"); }

}  // namespace cordboard::workbench
