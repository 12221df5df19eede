#include "script/HostCall.h"

#include <algorithm>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "script/Conversions.h"
#include "script/RunTimeFailure.h"

namespace cordboard {

namespace {

constexpr std::size_t MessageArguments = 4;  // as many as a message takes

// --- The arguments of a call, as the parameters of an operation. `place` is where the parameter stands.

const Argument* Find(const HostCall& call, std::size_t place) {
  return place < call.arguments.size() ? &call.arguments[place] : nullptr;
}

template <typename Type>
const Type& Get(const HostCall& call, std::size_t place) {
  if (const Type* content = std::get_if<Type>(Find(call, place))) return *content;
  throw RunTimeFailure(RunTimeFailure::Cause::InvalidCall, std::string(call.operation) + ": argument " +
                                                               std::to_string(place + 1) + " is missing or wrong");
}

void Read(const HostCall& call, std::size_t place, Value& given) { given = Get<Value>(call, place); }
void Read(const HostCall& call, std::size_t place, List& given) { given = Get<List>(call, place); }
void Read(const HostCall& call, std::size_t place, std::string& given) { given = ToText(Get<Value>(call, place)); }
void Read(const HostCall& call, std::size_t place, bool& given) { given = ToTruth(Get<Value>(call, place)); }
void Read(const HostCall& call, std::size_t place, int& given) { given = ToInt32(Get<Value>(call, place)); }
void Read(const HostCall& call, std::size_t place, std::variant<Value, List>& given) {
  if (const List* list = std::get_if<List>(Find(call, place))) {
    given = *list;
  } else {
    given = Get<Value>(call, place);
  }
}
template <typename Type>
void Read(const HostCall& call, std::size_t place, std::optional<Type>& given) {
  if (Find(call, place) != nullptr) Read(call, place, given.emplace());
}
void Read(const HostCall& call, std::size_t place, std::vector<Value>& given) {
  for (; Find(call, place) != nullptr; ++place) given.push_back(Get<Value>(call, place));
}

// A parameter during its call: what goes in is read, and what comes out, a reference that is not constant, is noted.
template <typename Parameter>
struct Place {
  using Type = std::remove_cvref_t<Parameter>;
  static constexpr bool isOut = std::is_same_v<Parameter, Type&>;
  Type content{};

  Place(const HostCall& call, std::size_t place) {
    if constexpr (isOut) {
      Get<OutPlace>(call, place);
    } else {
      Read(call, place, content);
    }
  }
  Type& Pass() { return content; }
  void Note(HostAnswer& answer) {
    if constexpr (isOut) answer.out = std::move(content);
  }
};

// Rows may be asked for or not.
template <>
struct Place<RowSet*> {
  using Type = RowSet;
  static constexpr bool isOut = true;
  bool asked;
  RowSet content{};

  Place(const HostCall& call, std::size_t) : asked(call.AsksOut()) {}
  RowSet* Pass() { return asked ? &content : nullptr; }
  void Note(HostAnswer& answer) {
    if (asked) answer.out = std::move(content);
  }
};

// --- The operations, described by their signatures.

template <typename Type>
constexpr AnswerKind KindOf = AnswerKind::Nothing;
template <>
constexpr AnswerKind KindOf<bool> = AnswerKind::Truth;
template <>
constexpr AnswerKind KindOf<Value> = AnswerKind::Value;
template <>
constexpr AnswerKind KindOf<List> = AnswerKind::List;
template <>
constexpr AnswerKind KindOf<RowSet> = AnswerKind::Rows;

template <typename Parameter>
constexpr AnswerKind OutKindOf =
    Place<Parameter>::isOut ? KindOf<typename Place<Parameter>::Type> : AnswerKind::Nothing;

template <typename Result, typename... Parameters>
struct Signature {
  static constexpr AnswerKind result = KindOf<Result>;
  static constexpr AnswerKind out = std::max({AnswerKind::Nothing, OutKindOf<Parameters>...});
  static constexpr std::size_t arity =
      (0 + ... + (std::is_same_v<Parameters, const std::vector<Value>&> ? MessageArguments : 1));

  template <auto operation>
  static HostAnswer Perform(Host& host, const HostCall& call) {
    return [&]<std::size_t... places>(std::index_sequence<places...>) {
      std::tuple<Place<Parameters>...> given{Place<Parameters>(call, places)...};
      HostAnswer answer;
      if constexpr (std::is_void_v<Result>) {
        (host.*operation)(std::get<places>(given).Pass()...);
      } else {
        answer.result = (host.*operation)(std::get<places>(given).Pass()...);
      }
      (std::get<places>(given).Note(answer), ...);
      return answer;
    }
    (std::index_sequence_for<Parameters...>());
  }
};

template <typename Result, typename... Parameters>
Signature<Result, Parameters...> SignatureOf(Result (Host::*)(Parameters...));

template <auto operation>
constexpr Operation Described(std::string_view name) {
  using Its = decltype(SignatureOf(operation));
  return {name, Its::result, Its::out, Its::arity, Its::template Perform<operation>};
}

constexpr Operation operations[] = {
    Described<&Host::scGetParamValue>("scGetParamValue"),
    Described<&Host::scSetParamValue>("scSetParamValue"),
    Described<&Host::scResetParam>("scResetParam"),
    Described<&Host::scSetParamOptional>("scSetParamOptional"),
    Described<&Host::scSetCanHaveParamRange>("scSetCanHaveParamRange"),
    Described<&Host::scSetCanHaveParamMultiple>("scSetCanHaveParamMultiple"),
    Described<&Host::scIsValueEqual>("scIsValueEqual"),
    Described<&Host::scGetValueArray>("scGetValueArray"),
    Described<&Host::scGetPreviousValue>("scGetPreviousValue"),
    Described<&Host::scActiveDefinition>("scActiveDefinition"),
    Described<&Host::SetTemplate>("SetTemplate"),
    Described<&Host::scCollectSingleValues>("scCollectSingleValues"),
    Described<&Host::scAddSingleValues>("scAddSingleValues"),
    Described<&Host::scSubtractSingleValues>("scSubtractSingleValues"),
    Described<&Host::scCollectValuesAndDesc>("scCollectValuesAndDesc"),
    Described<&Host::scSQLSelectValuesAndDesc>("scSQLSelectValuesAndDesc"),
    Described<&Host::scSQLSelectValuesAndDescByDefinition>("scSQLSelectValuesAndDescByDefinition"),
    Described<&Host::scPushValidValues>("scPushValidValues"),
    Described<&Host::scPushValidRangeValues>("scPushValidRangeValues"),
    Described<&Host::scRemoveFromValidValues>("scRemoveFromValidValues"),
    Described<&Host::scRemoveFromValidRangeValues>("scRemoveFromValidRangeValues"),
    Described<&Host::scGetValidValues>("scGetValidValues"),
    Described<&Host::scGetNumberOfValidValues>("scGetNumberOfValidValues"),
    Described<&Host::scRunQuery>("scRunQuery"),
    Described<&Host::scSQLInsert>("scSQLInsert"),
    Described<&Host::scSQLUpdate>("scSQLUpdate"),
    Described<&Host::scSQLSelect>("scSQLSelect"),
    Described<&Host::scBuildCmdID>("scBuildCmdID"),
    Described<&Host::scStartTransaction>("scStartTransaction"),
    Described<&Host::scCommitTransaction>("scCommitTransaction"),
    Described<&Host::scRollBackTransaction>("scRollBackTransaction"),
    Described<&Host::scNANSIinitiate>("scNANSIinitiate"),
    Described<&Host::scNANSIremoveFromBlockedRange>("scNANSIremoveFromBlockedRange"),
    Described<&Host::scGetAutoEquOptionValue>("scGetAutoEquOptionValue"),
    Described<&Host::scFilterEQU>("scFilterEQU"),
    Described<&Host::scErrorMessage>("scErrorMessage"),
    Described<&Host::scPrintToDebugWindow>("scPrintToDebugWindow"),
};

}  // namespace

bool HostCall::AsksOut() const {
  return std::ranges::any_of(arguments, [](const Argument& a) { return std::holds_alternative<OutPlace>(a); });
}

std::span<const Operation> Operations() { return operations; }

const Operation& FindOperation(std::string_view name) {
  const auto found = std::ranges::find(operations, name, &Operation::name);
  if (found != std::end(operations)) return *found;
  throw RunTimeFailure(RunTimeFailure::Cause::InvalidCall, std::string(name) + " is no operation of the host");
}

HostAnswer Perform(Host& host, const HostCall& call) { return FindOperation(call.operation).perform(host, call); }

}  // namespace cordboard
