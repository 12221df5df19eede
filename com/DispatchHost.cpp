#include "com/DispatchHost.h"

#include <string>
#include <vector>

#include "com/Array.h"
#include "com/LateBound.h"
#include "com/Variant.h"

namespace cordboard::com {

namespace {

// An argument as it is handed to the object; all out-arguments of a call are references to the one variant.
struct ToArgument {
  Variant& out;
  Variant operator()(const Value& value) const { return Variant(value); }
  Variant operator()(const List& list) const { return ToVariant(list); }
  Variant operator()(OutPlace) const { return Variant::ReferenceTo(out); }
};

Answered ToAnswered(const Variant& given, AnswerKind kind) {
  switch (kind) {
    case AnswerKind::Nothing: return {};
    case AnswerKind::Truth:
    case AnswerKind::Value: return ToValue(given);
    case AnswerKind::List: return ToList(given);
    case AnswerKind::Rows: return ToRowSet(given);
  }
  return {};
}

}  // namespace

HostAnswer DispatchHost::Answer(const HostCall& call) {
  const Operation& operation = FindOperation(call.operation);
  Variant out;
  std::vector<Variant> arguments;
  for (const Argument& argument : call.arguments) arguments.push_back(std::visit(ToArgument{out}, argument));
  while (arguments.size() < operation.arity) arguments.push_back(Variant::NotGiven());
  const Variant result = CallByName(object_, std::string(call.operation), arguments);
  HostAnswer answer;
  if (call.AsksOut()) answer.out = ToAnswered(out, operation.out);
  answer.result = ToAnswered(result, operation.result);
  return answer;
}

}  // namespace cordboard::com
