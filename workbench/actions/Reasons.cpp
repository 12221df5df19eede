#include "workbench/actions/Reasons.h"

#include <algorithm>
#include <array>

#include "script/Conversions.h"
#include "script/MessageCodes.h"
#include "workbench/actions/Called.h"
#include "workbench/exchange/References.h"
#include "workbench/text/Elements.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

// How many values are looked up.
constexpr std::size_t mostReasons = 12;

// What is told of one value, and of several of which the same is true; {} stands for them.
struct Fact {
  std::string ofOne;
  std::string ofSeveral;
  std::vector<std::string> values = {};
};

std::string Text(const Fact& fact) {
  std::string text = fact.values.size() == 1 ? fact.ofOne : fact.ofSeveral;
  if (const std::size_t place = text.find("{}"); place != text.npos)
    text.replace(place, 2, Separated(AsRanges(fact.values), "&"));
  return text;
}

class Facts {
 public:
  Facts(Filling& filling, const std::string& parameter) : filling_(filling), parameter_(parameter) {
    const std::string& table = filling.definition().table;
    reference_ = ShippedReferences().Find(table, parameter);
    defined_ = ShippedReferences().DefinedIn(table, parameter);
    record_ = reference_ != nullptr ? reference_->record : ShippedReferences().RecordsIn(table);
  }

  // Finds out what there is to tell of the value.
  void Look(const std::string& value) {
    if (IsTheKeyOfAnother(value)) return;
    if (reference_ != nullptr) LookFor(*reference_->thing, reference_->takes, value);
  }
  // Only whether a record has the value.
  void LookWhoHas(const std::string& value) {
    if (!IsTheKeyOfAnother(value) && reference_ != nullptr && reference_->takes) IsTaken(*reference_->thing, value);
  }
  // A string of digits must not begin another one. Those that it begins stand together in an index, before the last
  // of all characters.
  void LookForBeginning(const std::string& value) {
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

  // Or lie in a range that is blocked.
  void LookForRange(const std::string& value) {
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

  std::string Told() const { return Separated(facts_, "; ", Text); }

 private:
  Exchange& exchange() { return filling_.session().exchange(); }

  void Add(const std::string& ofOne, const std::string& ofSeveral, const std::string& value) {
    auto same = std::ranges::find(facts_, ofSeveral, &Fact::ofSeveral);
    if (same == facts_.end()) same = facts_.insert(same, {ofOne, ofSeveral});
    same->values.push_back(value);
  }

  // Whether a record of the same command has the same key, as far as the form shows it.
  bool IsTheKeyOfAnother(const std::string& value) {
    if (record_ == nullptr || std::ranges::find(record_->key, parameter_) == record_->key.end()) return false;
    KeyValues key;
    for (const std::string& column : record_->key)
      key.emplace_back(column, column == parameter_ ? value : Joined(filling_.form().Get(column)));
    const std::vector<Holder> others = RecordsWith(exchange(), *record_, key, 1);
    if (others.empty() || !IsSetUp(value)) return false;
    Add("there is already the " + Called(others.front()),
        "there are already records of " + record_->command + " for {}", value);
    return true;
  }

  // Rows that the plant provides count from the time when they are filled in.
  bool IsSetUp(const std::string& value) {
    return defined_ == nullptr || defined_->home->where.empty() || StandingOf(exchange(), *defined_, value).isThere;
  }

  void LookFor(const Thing& thing, bool takes, const std::string& value) {
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
  void IsMissing(const Thing& thing, const std::string& value) {
    if (thing.of != nullptr && !StandingOf(exchange(), *thing.of, value).isThere) return IsMissing(*thing.of, value);
    const std::string by = thing.definedBy == nullptr ? "" : " (" + thing.definedBy->command + ")";
    Add(thing.missing + by, thing.missing + by, value);
    if (thing.of != nullptr) IsTaken(*thing.of, value);
  }

  bool IsTaken(const Thing& thing, const std::string& value) {
    const std::vector<Holder> holders = WhoTakes(exchange(), thing, value, 1);
    if (holders.empty()) return false;
    Add("{} is used by the " + Called(holders.front()), "{} are used by records of " + holders.front().record->command,
        value);
    return true;
  }

  Filling& filling_;
  std::string parameter_;
  const Reference* reference_;
  const Thing* defined_;
  const RecordKind* record_;
  std::vector<Fact> facts_;
};

// The values of a parameter on the form, one by one.
std::vector<std::string> ValuesOf(const Filling& filling, const std::string& parameter) {
  const std::string value = Joined(filling.form().Get(parameter));
  const ParameterDefinition* definition = filling.definition().Find(parameter);
  try {
    return value.empty() || definition == nullptr || !definition->TakesElements() ? std::vector{value}
                                                                                  : Elements(value);
  } catch (const ElementsError&) {
    return {value};
  }
}

bool Is(const ReportedMessage& message, int code) { return message.code == std::to_string(code); }

// Messages that are about a value which is used.
bool IsAboutUse(const ReportedMessage& message) {
  static constexpr std::array codes = {
      NumberInUse, ConstantInBlockedRange, ValuePresentForKey, ValueUsedTwice,         ValueAgainstPrefixRule,
      PortTaken,   KeyExistsAlready,       CodeInUse,          CordlessRecordNotAdded, AddressRefused};
  return std::ranges::any_of(codes, [&](int code) { return Is(message, code); });
}

// The parameter that a message is about: one that it names, alone or as the first of several; the one that has the
// value that it tells; or, where it speaks of "the number", the one whose numbers the command sets up.
std::string About(const ReportedMessage& message, const Filling& filling) {
  const FormDefinition& definition = filling.definition();
  for (const Value& argument : message.arguments) {
    std::string name = Joined(Trim(argument));
    name = name.substr(0, name.find(','));
    if (definition.Find(name) != nullptr) return name;
  }
  for (const Assignment& given : filling.given()) {
    const bool isTold = message.arguments.size() == 1 && given.value == Joined(message.arguments.front());
    const bool isTheNumber = Is(message, NumberTooLong) || Is(message, NumberTooShort) || !message.reason.empty();
    if (isTold || (isTheNumber && ShippedReferences().DefinedIn(definition.table, given.name) != nullptr))
      return given.name;
  }
  return "";
}

// What the exchange tells of the values of one parameter.
std::string WhoHasOne(Filling& filling, const std::string& parameter, const ReportedMessage& message) {
  if (filling.definition().Find(parameter) == nullptr || filling.definition().IsSecret(parameter)) return "";
  Facts facts(filling, parameter);
  std::vector<std::string> values = ValuesOf(filling, parameter);
  values.resize(std::min(values.size(), mostReasons));
  for (const std::string& value : values) {
    if (value.empty()) continue;
    facts.LookWhoHas(value);
    if (facts.Told().empty() && Is(message, NumberInUse)) facts.LookForBeginning(value);
    if (facts.Told().empty() && Is(message, ConstantInBlockedRange)) facts.LookForRange(value);
  }
  return facts.Told();
}

// Finds out which value a message about use is about, where it does not say so, and who has it.
void LookWhoHas(Filling& filling, const ReportedMessage& message, Problem& problem) {
  if (!problem.parameter.empty()) {
    problem.reason = WhoHasOne(filling, problem.parameter, message);
    return;
  }
  for (const Assignment& given : filling.given()) {
    problem.reason = WhoHasOne(filling, given.name, message);
    if (problem.reason.empty()) continue;
    problem.parameter = given.name;
    return;
  }
}

}  // namespace

std::string WhyRefused(Filling& filling, const std::string& parameter, const std::vector<std::string>& values) {
  if (filling.definition().IsSecret(parameter)) return "";
  Facts facts(filling, parameter);
  for (std::size_t i = 0; i < std::min(values.size(), mostReasons); ++i) facts.Look(values[i]);
  const std::string told = facts.Told();
  return told.empty() || values.size() <= mostReasons ? told : told + "; and so on";
}

std::vector<Problem> Explained(Filling& filling, const std::vector<ReportedMessage>& messages) {
  std::vector<Problem> problems;
  for (const ReportedMessage& message : messages) {
    Problem problem{.parameter = About(message, filling), .message = message.text, .reason = message.reason};
    if (problem.reason.empty() && IsAboutUse(message)) LookWhoHas(filling, message, problem);
    if (!problem.parameter.empty()) problem.value = Joined(filling.form().Get(problem.parameter));
    const bool isNew = std::ranges::none_of(problems, [&](const Problem& before) {
      return before.message == problem.message && before.parameter == problem.parameter;
    });
    if (isNew) problems.push_back(std::move(problem));
  }
  return problems;
}

std::vector<Naming> NamedBy(Exchange& exchange, const FormDefinition& definition, const Form& form, std::size_t most) {
  std::vector<Naming> namings;
  for (const Thing& thing : ShippedReferences().things()) {
    if (thing.definedBy == nullptr || thing.definedBy->table != definition.table) continue;
    const std::string value = Joined(form.Get(thing.home->value));
    if (value.empty()) continue;
    std::vector<Holder> holders = WhoHolds(exchange, thing, value, most);
    if (!holders.empty()) namings.push_back({&thing, value, std::move(holders)});
  }
  return namings;
}

std::string WhoNames(Exchange& exchange, const FormDefinition& definition, const Form& form) {
  const std::vector<Naming> namings = NamedBy(exchange, definition, form, 1);
  if (namings.empty()) return "";
  const auto& [thing, value, holders] = namings.front();
  return "the " + thing->name + " " + value + " is named by the " + Called(holders.front());
}

}  // namespace cordboard::workbench
