#include "workbench/plans/Mending.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <span>
#include <utility>

#include "script/Conversions.h"
#include "workbench/actions/Called.h"
#include "workbench/actions/Filling.h"
#include "workbench/actions/Records.h"
#include "workbench/actions/ShownValues.h"
#include "workbench/plans/RecordLines.h"

namespace cordboard::workbench {

namespace {

using Kind = LeftBehind::Kind;
using Actions = std::vector<UserAction>;

std::vector<Assignment> Selecting(const Holder& record) {
  std::vector<Assignment> selection;
  for (const auto& [name, value] : record.key) selection.push_back({name, value});
  return selection;
}

UserAction Deleting(const Holder& record) {
  return {.kind = UserAction::Kind::Delete,
          .command = record.record->command,
          .selection = Selecting(record),
          .values = {}};
}

UserAction Setting(const Holder& record, const std::string& parameter, const std::string& value) {
  return {.kind = UserAction::Kind::Edit,
          .command = record.record->command,
          .selection = Selecting(record),
          .values = {{parameter, value}}};
}

// The form of a record as an edit shows it.
std::optional<Filling> Shown(Session& session, const LeftBehind& found) {
  const FormDefinition* form = FindForm(found.record->record->command);
  if (form == nullptr) return std::nullopt;
  const auto stored = FindRecord(session.exchange(), *form, Selecting(*found.record));
  if (!std::holds_alternative<StoredRecord>(stored)) return std::nullopt;
  const auto& [table, CmdId] = std::get<StoredRecord>(stored);
  std::optional<Filling> filling(std::in_place, session, *table);
  ShowRecord(session, *table, CmdId);
  return filling;
}

// Another value that an edit of the record could give the parameter; nothing where it has no list, or an empty one.
std::string OtherValue(Filling& filling, const LeftBehind& found) {
  const ValueList* list = filling.ListOf(found.reference->column);
  if (list == nullptr) return "";
  const std::vector<ValidValue> values = list->First(2);
  const auto other = std::ranges::find_if(values, [&](const ValidValue& each) { return each.value != found.value; });
  return other == values.end() ? "" : other->value;
}

UserAction AddingAgain(const Filling& filling) {
  const RecordTable table(filling.definition());
  Record record;
  for (const std::string& column : table.columns()) record.push_back(Joined(filling.form().Get(column)));
  return AddOf(table, std::span(&record, 1), ToldOf(table, record));
}

std::vector<Actions> WaysOfARecord(Session& session, const LeftBehind& found) {
  std::optional<Filling> filling = Shown(session, found);
  if (!filling) return {};
  const Holder& record = *found.record;
  const std::string& column = found.reference->column;
  const FormDefinition& form = filling->definition();
  std::vector<Actions> ways;
  const bool isKey = std::ranges::find(record.record->key, column) != record.record->key.end();
  const ParameterDefinition* parameter = form.Find(column);
  const bool canChange = form.edits && !isKey && parameter != nullptr && !parameter->addOnly;
  // The mark comes with the value, or with the record.
  if (canChange && found.kind == Kind::Unmarked) ways.push_back({Setting(record, column, found.value)});
  if (form.adds && form.deletes && found.kind == Kind::Unmarked)
    ways.push_back({Deleting(record), AddingAgain(*filling)});
  if (canChange) {
    ways.push_back({Setting(record, column, "")});
    if (const std::string other = OtherValue(*filling, found); !other.empty())
      ways.push_back({Setting(record, column, other)});
  }
  if (form.deletes) ways.push_back({Deleting(record)});
  return ways;
}

// What stands there marked as used goes.
std::vector<Actions> WaysOfAMark(Exchange& exchange, const LeftBehind& found) {
  const RecordKind* kind = found.thing->definedBy;
  if (kind == nullptr) return {};
  std::vector<Actions> ways;
  for (const Holder& record : RecordsWith(exchange, *kind, {{found.thing->home->value, found.value}}, 1))
    ways.push_back({Deleting(record)});
  return ways;
}

class Mender {
 public:
  explicit Mender(Session& session) : session_(session) {}

  // Takes the first of the ways that the rules allow and that puts it in order.
  Actions Mend(const LeftBehind& found) {
    if (!found.record && doesHarm_.contains(found.thing)) return {};
    const auto ways = found.record ? WaysOfARecord(session_, found) : WaysOfAMark(session_.exchange(), found);
    for (const Actions& way : ways) {
      if (PutsInOrder(way, found)) return way;
    }
    return {};
  }

 private:
  bool PutsInOrder(const Actions& way, const LeftBehind& found) {
    Exchange& exchange = session_.exchange();
    const std::size_t before = found.record ? 0 : FindLeftBehind(exchange).size();
    Transaction transaction(exchange);
    for (const UserAction& action : way) {
      if (!Perform(session_, action).done) return false;
    }
    if (Stands(exchange, found)) return false;
    // A rule that takes away what is not used may clear marks of others on the way: those of numbers do.
    if (!found.record && FindLeftBehind(exchange).size() >= before) {
      doesHarm_.insert(found.thing);
      return false;
    }
    transaction.Commit();
    return true;
  }

  Session& session_;
  std::set<const Thing*> doesHarm_;
};

}  // namespace

std::string InWords(const LeftBehind& found) {
  const FormDefinition* form = found.reference == nullptr ? nullptr : FindForm(found.reference->record->command);
  const bool isSecret = form != nullptr && form->IsSecret(found.reference->column);
  const std::string value = isSecret ? hiddenValue : found.value;
  const std::string thing = "the " + found.thing->name + " " + value;
  const std::string by = found.thing->definedBy == nullptr ? "" : " (" + found.thing->definedBy->command + ")";
  switch (found.kind) {
    case Kind::Missing: {
      std::string missing = found.thing->missing;
      if (const std::size_t place = missing.find("{}"); place != missing.npos) missing.replace(place, 2, value);
      return missing + by;
    }
    case Kind::Blank: return thing + " is blank" + by;
    case Kind::Unmarked: return thing + " is not marked as used";
    case Kind::Shared: return thing + " is that of the " + Called(*found.other) + " as well";
    case Kind::Unheld: break;
  }
  return thing + " is marked as used, and no record has it";
}

std::vector<Mended> MendAll(Session& session) {
  Exchange& exchange = session.exchange();
  Mender mender(session);
  std::vector<Mended> mended;
  std::set<std::string> seen;
  std::vector<Mended> hopeless;
  // What could not be mended is tried again once something else was.
  for (bool mends = true; mends;) {
    hopeless.clear();
    const std::size_t before = mended.size();
    for (LeftBehind& found : FindLeftBehind(exchange)) {
      if (!Stands(exchange, found)) continue;  // it went with one before
      std::vector<UserAction> by = seen.contains(found.Identity()) ? Actions() : mender.Mend(found);
      if (!by.empty()) seen.insert(found.Identity());
      (by.empty() ? hopeless : mended).push_back({std::move(found), std::move(by)});
    }
    mends = mended.size() > before;
  }
  std::ranges::move(hopeless, std::back_inserter(mended));
  return mended;
}

}  // namespace cordboard::workbench
