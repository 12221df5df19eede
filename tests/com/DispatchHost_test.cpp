#include "com/DispatchHost.h"

#include <gtest/gtest.h>

#include <map>

#include "com/Array.h"
#include "com/WideText.h"
#include "com/support/AutomationHost.h"
#include "script/RunTimeFailure.h"
#include "support/EveryOperation.h"

namespace cordboard::com {
namespace {

// Answers as AnsweringHost does, in the words of the platform.
HRESULT AnswerEverything(const ObjectCall& call) {
  if (call.name == "scGetParamValue") {
    call.Answer(Variant(Value("of the form")));
  } else if (call.name == "scIsValueEqual") {
    call.Answer(Variant(Value::Null()));
  } else if (call.name == "scBuildCmdID") {
    call.Answer(Variant(Value(1001)));
  } else if (call.name == "scSQLSelect") {
    call.Answer(Rows({{"selected"}}));
  } else {
    call.Answer(Variant(Value(true)));
  }
  if (call.name == "scGetValueArray") call.Give(1, ToVariant(List{"1", "2"}));
  if (call.name == "scGetPreviousValue") call.Give(0, Variant(Value("before")));
  if (call.name == "scGetValidValues") call.Give(1, ToVariant(List{"7"}));
  if (call.name == "scGetNumberOfValidValues") call.Give(2, Variant(Value(12)));
  if (call.name == "scNANSIinitiate") call.Give(2, Variant(Value(60010)));
  if (call.name == "scGetAutoEquOptionValue") call.Give(0, Variant(Value(" ORDER BY EQU")));
  if (call.name == "scRunQuery" && call.arguments[1]->vt & VT_BYREF)
    call.Give(1, Rows({{"100", "101"}, {"EX", Value::Null()}}));
  return S_OK;
}

DispatchHost HostWith(AutomationHost::Answering answering) {
  return DispatchHost(Pointer<IDispatch>(AutomationHost::Make(std::move(answering)).get()));
}

template <typename Work>
std::string FailureOf(Work work) {
  try {
    work();
  } catch (const RunTimeFailure& failure) {
    return std::string(Name(failure.cause())) + " " + failure.what();
  }
  return "";
}

TEST(DispatchHost, EveryOperationIsCalledByItsNameAndBringsItsAnswer) {
  for (const OperationCall& operation : EveryOperation()) {
    std::string call;
    DispatchHost host = HostWith([&call](const ObjectCall& asked) {
      call = asked.Text();
      return AnswerEverything(asked);
    });
    EXPECT_EQ(operation.perform(host), operation.answer);
    EXPECT_EQ(call, operation.call);
  }
}

TEST(DispatchHost, ArgumentsThatAreNotGivenStandAtTheEndAsNotFound) {
  std::map<std::string, std::size_t> counts;
  DispatchHost host = HostWith([&counts](const ObjectCall& call) {
    const auto [known, first] = counts.emplace(call.name, call.arguments.size());
    EXPECT_EQ(known->second, call.arguments.size()) << call.name;
    return AnswerEverything(call);
  });
  for (const OperationCall& operation : EveryOperation()) operation.perform(host);
  EXPECT_EQ(counts.size(), 37U);
  EXPECT_EQ(counts["scRunQuery"], 3U);
  EXPECT_EQ(counts["scCollectSingleValues"], 2U);
  EXPECT_EQ(counts["scCollectValuesAndDesc"], 2U);
  EXPECT_EQ(counts["scPushValidValues"], 2U);
  EXPECT_EQ(counts["scErrorMessage"], 9U);
}

TEST(DispatchHost, OutArgumentsArriveEmptyAndMayStaySo) {
  DispatchHost host = HostWith([](const ObjectCall& call) {
    EXPECT_EQ(call.arguments[1]->pvarVal->vt, VT_EMPTY);
    call.Answer(Variant(Value(false)));
    return S_OK;
  });
  RowSet rows({{"before"}});
  List values{"before"};
  EXPECT_FALSE(host.scRunQuery("SELECT", &rows, std::nullopt));
  EXPECT_TRUE(rows.IsEmpty());
  EXPECT_FALSE(host.scGetValueArray("NUM", values));
  EXPECT_TRUE(values.IsEmpty());
}

TEST(DispatchHost, AnyNumberButZeroIsTrueAndNoAnswerFalse) {
  Value answer;
  DispatchHost host = HostWith([&answer](const ObjectCall& call) {
    call.Answer(Variant(answer));
    return S_OK;
  });
  EXPECT_FALSE(host.scResetParam("DIR"));
  answer = 2;
  EXPECT_TRUE(host.scResetParam("DIR"));
  answer = Value::Null();
  EXPECT_TRUE(FailureOf([&host] { host.scResetParam("DIR"); }).starts_with("InvalidUseOfNull"));
}

TEST(DispatchHost, AFailureOfTheHostComesWithItsDescriptionAndNumber) {
  DispatchHost host = HostWith([](const ObjectCall& call) {
    call.failure->scode = static_cast<SCODE>(0x80040E37);
    call.failure->bstrDescription = ToBstr("no such t\u00E4ble");
    return DISP_E_EXCEPTION;
  });
  EXPECT_EQ(FailureOf([&host] { host.scBuildCmdID(); }), "HostFailure scBuildCmdID: no such t\u00E4ble (0x80040E37)");
}

TEST(DispatchHost, AFailureMayBringItsWordsWhenAskedForThem) {
  DispatchHost host = HostWith([](const ObjectCall& call) {
    call.failure->pfnDeferredFillIn = [](EXCEPINFO* failure) {
      failure->wCode = 1004;
      return S_OK;
    };
    return DISP_E_EXCEPTION;
  });
  EXPECT_EQ(FailureOf([&host] { host.scBuildCmdID(); }), "HostFailure scBuildCmdID: the host failed (1004)");
}

TEST(DispatchHost, AResultCodeWithoutWordsIsAFailureToo) {
  DispatchHost host = HostWith([](const ObjectCall&) { return DISP_E_BADPARAMCOUNT; });
  EXPECT_EQ(FailureOf([&host] { host.scStartTransaction(); }),
            "HostFailure scStartTransaction: the host failed (0x8002000E)");
}

TEST(DispatchHost, ANameThatTheHostDoesNotKnowIsItsFailure) {
  DispatchHost host = HostWith(nullptr);
  EXPECT_EQ(FailureOf([&host] { host.scFilterEQU(2, "2"); }),
            "HostFailure scFilterEQU: the host does not know the operation (0x80020006)");
}

TEST(DispatchHost, AnAnswerOfTheWrongShapeIsATypeMismatch) {
  DispatchHost host = HostWith([](const ObjectCall& call) {
    if (call.arguments.size() > 1) call.Give(1, Variant(Value("no list")));
    call.Answer(ToVariant(List{"1"}));
    return S_OK;
  });
  List values;
  RowSet rows;
  EXPECT_TRUE(FailureOf([&host] { host.scGetParamValue("DIR"); }).starts_with("TypeMismatch"));
  EXPECT_TRUE(FailureOf([&] { host.scGetValueArray("DIR", values); }).starts_with("TypeMismatch"));
  EXPECT_TRUE(FailureOf([&] { host.scRunQuery("SELECT", &rows, std::nullopt); }).starts_with("TypeMismatch"));
}

}  // namespace
}  // namespace cordboard::com
