#include "script/Action.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/Outcome.h"

namespace cordboard {
namespace {

Action With(List parameters) { return {.ParamList = std::move(parameters)}; }

struct First {
  List parameters;
  std::string parameter;    // Parameter
  std::string orderNumber;  // OrderNumber
};

const std::vector<First> table = {
    {{"DIR"}, "\"DIR\"", "\"0\""},
    {{"12"}, "\"12\"", "\"12\""},
    {{"12", "13"}, "\"12\"", "\"12\""},
    {{" 12A"}, "\" 12A\"", "\"12\""},
    {{3.7}, "\"3.7\"", "\"3\""},
    {{-3.7}, "\"-3.7\"", "\"-3\""},
    {{""}, "\"\"", "\"0\""},
    {{Value()}, "\"\"", "\"0\""},
    {{Value::Null()}, "InvalidUseOfNull", "InvalidUseOfNull"},
    {List(std::vector<Value>{}), "SubscriptOutOfRange", "SubscriptOutOfRange"},
    {List(), "SubscriptOutOfRange", "SubscriptOutOfRange"},
    {List::Null(), "SubscriptOutOfRange", "SubscriptOutOfRange"},
};

TEST(Action, TheFirstOfItsParametersIsReadAsATextAndAsAWholeNumber) {
  for (const auto& [parameters, parameter, orderNumber] : table) {
    const Action action = With(parameters);
    SCOPED_TRACE(TraceText(parameters));
    EXPECT_EQ(Outcome([&] { return action.Parameter(); }), parameter);
    EXPECT_EQ(Outcome([&] { return action.OrderNumber(); }), orderNumber);
  }
}

}  // namespace
}  // namespace cordboard
