#include "workbench/actions/Facts.h"

#include <algorithm>

#include "script/Conversions.h"
#include "workbench/actions/Called.h"
#include "workbench/text/Elements.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

std::string Facts::Fact::Told() const {
  std::string text = values.size() == 1 ? ofOne : ofSeveral;
  if (const std::size_t place = text.find("{}"); place != text.npos)
    text.replace(place, 2, Separated(AsRanges(values), "&"));
  return text;
}

Facts::Facts(Filling& filling, const std::string& parameter) : filling_(filling), parameter_(parameter) {
  const std::string& table = filling.definition().table;
  reference_ = ShippedReferences().Find(table, parameter);
  defined_ = ShippedReferences().DefinedIn(table, parameter);
  record_ = reference_ != nullptr ? reference_->record : ShippedReferences().RecordsIn(table);
}

void Facts::Look(const std::string& value) {
  if (IsTheKeyOfAnother(value)) return;
  if (reference_ != nullptr) LookFor(*reference_->thing, reference_->takes, value);
}

void Facts::LookWhoHas(const std::string& value) {
  if (!IsTheKeyOfAnother(value) && reference_ != nullptr && reference_->takes) IsTaken(*reference_->thing, value);
}

// The strings that the value begins stand together in an index: between it, and it with the last of all characters.
void Facts::LookForBeginning(const std::string& value) {
  const bool ownStrings = defined_ != nullptr;
  const std::string table = ownStrings ? filling_.definition().table : "NANSI";
  const std::string column = ownStrings ? parameter_ : "NUMSE";
  const RowSet rows = exchange().Dynamic().Run("SELECT [" + column + "] FROM [" + table + "] WHERE [" + column +
                                                   "] BETWEEN ?1 AND ?1 || char(1114111) ORDER BY 1 LIMIT 1",
                                               {value});
  if (rows.IsEmpty()) return;
  const std::string number = Joined(rows[0][0]) + " (" + table + ")";
  Add("{} begins the number " + number, "{} begin the number " + number, value);
}

void Facts::LookForRange(const std::string& value) {
  const RowSet rows = exchange().Dynamic().Run(
      "SELECT [Start], [End] FROM [NANSIBlockedRange] WHERE CAST(?1 AS INTEGER) BETWEEN CAST([Start] AS INTEGER) AND "
      "CAST(COALESCE([End], [Start]) AS INTEGER) LIMIT 1",
      {value});
  if (rows.IsEmpty()) return;
  const std::string range = rows[1][0].IsNull()
                                ? "is taken by the constant " + Joined(rows[0][0])
                                : "lies in the series " + Joined(rows[0][0]) + "&&" + Joined(rows[1][0]);
  Add("{} " + range, "each of {} " + range, value);
}

std::string Facts::Told() const { return Separated(facts_, "; ", &Fact::Told); }

void Facts::Add(const std::string& ofOne, const std::string& ofSeveral, const std::string& value) {
  auto same = std::ranges::find(facts_, ofSeveral, &Fact::ofSeveral);
  if (same == facts_.end()) same = facts_.insert(same, {ofOne, ofSeveral});
  same->values.push_back(value);
}

// Whether a record of the same command has the same key, as far as the form shows it.
bool Facts::IsTheKeyOfAnother(const std::string& value) {
  if (record_ == nullptr || std::ranges::find(record_->key, parameter_) == record_->key.end()) return false;
  KeyValues key;
  for (const std::string& column : record_->key)
    key.emplace_back(column, column == parameter_ ? value : Joined(filling_.form().Get(column)));
  const std::vector<Holder> others = RecordsWith(exchange(), *record_, key, 1);
  if (others.empty() || !IsSetUp(value)) return false;
  Add("there is already the " + Called(others.front()), "there are already records of " + record_->command + " for {}",
      value);
  return true;
}

// Rows that the plant provides count from the time when they are filled in.
bool Facts::IsSetUp(const std::string& value) {
  return defined_ == nullptr || defined_->home->where.empty() || StandingOf(exchange(), *defined_, value).isThere;
}

void Facts::LookFor(const Thing& thing, bool takes, const std::string& value) {
  const Standing standing = StandingOf(exchange(), thing, value);
  if (!standing.isThere) return IsMissing(thing, value);
  if (takes && IsTaken(thing, value)) return;
  if (takes && standing.isUsed) return Add("{} is marked as used", "{} are marked as used", value);
  if (standing.isUsed || !thing.home || (!takes && thing.home->used.empty())) return;
  const std::string what = thing.name + (standing.trait.empty() ? "" : " " + standing.trait);
  if (takes) return Add("{} is a free " + what, "{} are free, each a " + what, value);
  Add("{} is a " + what + " that no record has", "{} are each a " + what + " that no record has", value);
}

// What is no key extension may be a number that something else has.
void Facts::IsMissing(const Thing& thing, const std::string& value) {
  if (thing.of != nullptr && !StandingOf(exchange(), *thing.of, value).isThere) return IsMissing(*thing.of, value);
  const std::string by = thing.definedBy == nullptr ? "" : " (" + thing.definedBy->command + ")";
  Add(thing.missing + by, thing.missing + by, value);
  if (thing.of != nullptr) IsTaken(*thing.of, value);
}

bool Facts::IsTaken(const Thing& thing, const std::string& value) {
  const std::vector<Holder> holders = WhoTakes(exchange(), thing, value, 1);
  if (holders.empty()) return false;
  Add("{} is used by the " + Called(holders.front()), "{} are used by records of " + holders.front().record->command,
      value);
  return true;
}

}  // namespace cordboard::workbench
