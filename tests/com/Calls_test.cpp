// Calls of the object, early and late bound.

#include <gtest/gtest.h>

#include "com/Array.h"
#include "com/support/AutomationHost.h"
#include "com/support/Client.h"

namespace cordboard::com {
namespace {

class Calls : public testing::Test {
 protected:
  void AddHost(AutomationHost::Answering answering) {
    const auto host = AutomationHost::Make(std::move(answering));
    ASSERT_EQ(script_->AddObject(host.get()), S_OK);
  }
  // The arguments of Run as a script gives them: references to variants.
  std::vector<Variant> References() {
    std::vector<Variant> references;
    for (Variant& variable : variables_) references.push_back(Variant::ReferenceTo(variable));
    return references;
  }

  LoadedModule module_;
  Pointer<_CScript> script_ = module_.NewScript();
  std::vector<Variant> variables_ = [] {
    std::vector<Variant> variables;
    for (const Value& value : {Value(1), Value("R8"), Value("GetValidValForParam"), Value("NANSI"), Value(0)})
      variables.emplace_back(value);
    variables.push_back(ToVariant(List{"NUMTYP"}));
    return variables;
  }();
};

TEST_F(Calls, EarlyBoundRunGivesATruthValue) {
  std::vector<std::string> calls;
  AddHost([&calls](const ObjectCall& call) {
    calls.push_back(call.Text());
    call.Answer(Variant(Value(true)));
    return S_OK;
  });
  EXPECT_EQ(RunEarly(script_, "GetValidValForParam", "NANSI", {"NUMTYP"}).value, Value(true));
  EXPECT_EQ(RunEarly(script_, "StatCheck", "NANSI", {"NUMTYP"}).value, Value(false));
  EXPECT_EQ(RunEarly(script_, "GetValidValForParam", "nansi", {"NUMTYP"}).value, Value(false));
  EXPECT_EQ(calls, (std::vector<std::string>{"scSQLSelectValuesAndDesc()", "scIsValueEqual(\"CP\")",
                                             "scSetCanHaveParamRange(\"NUMSE\", False)",
                                             "scSetCanHaveParamMultiple(\"NUMSE\", False)"}));
}

TEST_F(Calls, NoArgumentMayBeLeftOutEarlyBound) {
  LONG number = 0;
  Variant text(Value("R8"));
  Variant result;
  EXPECT_EQ(script_->Run(&number, &text.bstrVal, &text.bstrVal, &text.bstrVal, &number, nullptr, &result), E_POINTER);
  EXPECT_EQ(script_->Run(&number, &text.bstrVal, &text.bstrVal, &text.bstrVal, &number, &result, nullptr), E_POINTER);
}

TEST_F(Calls, ANullTextIsTheEmptyText) {
  LONG number = 0;
  BSTR text = nullptr;
  Variant list;
  Variant result;
  EXPECT_EQ(script_->Run(&number, &text, &text, &text, &number, &list, &result), S_OK);
  EXPECT_EQ(ToValue(result), Value(false));
}

TEST_F(Calls, LateBoundRunTakesReferencesToVariants) {
  AddHost([](const ObjectCall& call) {
    call.Answer(Variant(Value(true)));
    return S_OK;
  });
  const Outcome outcome = InvokeLate(script_, L"Run", References());
  EXPECT_EQ(Told(outcome), "");
  EXPECT_EQ(outcome.value, Value(true));
}

TEST_F(Calls, NamesAreKnownInAnyCapitals) {
  const Outcome outcome = InvokeLate(script_, L"rUN", References());
  EXPECT_EQ(Told(outcome), "800A005B Cordboard.CScript: the library has no host: call AddObject first");
  EXPECT_EQ(InvokeLate(script_, L"Walk", {}).code, DISP_E_UNKNOWNNAME);
}

TEST_F(Calls, LateBoundArgumentsAreConvertedToTheDeclaredTypesAndNotWrittenBack) {
  std::string statement;
  AddHost([&statement](const ObjectCall& call) {
    if (call.name == "scRunQuery") statement = call.Text();
    call.Answer(Variant(Value(false)));
    return S_OK;
  });
  variables_[0] = Variant(Value("12"));
  variables_[1] = Variant(Value(8));
  variables_[2] = Variant(Value("DeleteInfo"));
  variables_[4] = Variant(Value("345"));
  variables_[5] = Variant();
  EXPECT_EQ(Told(InvokeLate(script_, L"Run", References())), "");
  EXPECT_EQ(statement, "scRunQuery(\"SELECT NUMSE, NUMTYP FROM NANSI {NL} WHERE CmdId = 345\", out)");
  EXPECT_EQ(variables_[0].vt, VT_BSTR);
  EXPECT_EQ(ToValue(variables_[4]), Value("345"));
  EXPECT_EQ(variables_[5].vt, VT_EMPTY);
}

TEST_F(Calls, AnArgumentThatCannotBeConvertedIsATypeMismatchAtItsPlace) {
  variables_[0] = Variant(Value("many"));
  const Outcome outcome = InvokeLate(script_, L"Run", References());
  EXPECT_EQ(outcome.code, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(outcome.wrong, 5U);  // counted from the last
}

TEST_F(Calls, TooManyAndTooFewArgumentsAreRefused) {
  std::vector<Variant> arguments = References();
  arguments.emplace_back(Value(7));
  EXPECT_EQ(InvokeLate(script_, L"Run", std::move(arguments)).code, DISP_E_BADPARAMCOUNT);
  arguments = References();
  arguments.pop_back();
  EXPECT_TRUE(FAILED(InvokeLate(script_, L"Run", std::move(arguments)).code));
  EXPECT_TRUE(FAILED(InvokeLate(script_, L"AddObject", {}).code));
}

TEST_F(Calls, ArgumentsCanBeNamed) {
  AddHost([](const ObjectCall& call) {
    call.Answer(Variant(Value(true)));
    return S_OK;
  });
  LPOLESTR names[] = {const_cast<LPOLESTR>(L"Run"), const_cast<LPOLESTR>(L"ParamList"),
                      const_cast<LPOLESTR>(L"CmdName")};
  DISPID ids[3] = {};
  ASSERT_EQ(script_->GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, ids), S_OK);
  EXPECT_EQ(ids[1], 5);
  EXPECT_EQ(ids[2], 3);

  // All by name, from the first to the last; the others stand from the last to the first.
  std::vector<Variant> arguments = References();
  DISPID positions[] = {0, 1, 2, 3, 4, 5};
  DISPPARAMS params{arguments.data(), positions, 6, 6};
  Variant result;
  EXPECT_EQ(script_->Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, &result, nullptr, nullptr),
            S_OK);
  EXPECT_EQ(ToValue(result), Value(true));
}

TEST_F(Calls, WhatIsNoListIsATypeMismatch) {
  variables_[5] = Variant(Value("NUMTYP"));
  EXPECT_EQ(Told(InvokeLate(script_, L"Run", References())), "800A000D Cordboard.CScript: no list where one is due");
}

TEST_F(Calls, AFailingHostEndsRunWithItsWords) {
  AddHost([](const ObjectCall& call) {
    call.failure->scode = E_ACCESSDENIED;
    call.failure->bstrDescription = SysAllocString(L"locked");
    return DISP_E_EXCEPTION;
  });
  const char* told = "80040201 Cordboard.CScript: scSQLSelectValuesAndDesc: locked (0x80070005)";
  EXPECT_EQ(Told(RunEarly(script_, "GetValidValForParam", "NANSI", {"NUMTYP"})), told);
  EXPECT_EQ(Told(InvokeLate(script_, L"Run", References())), told);
}

TEST_F(Calls, AFailureOfTheRulesHasTheNumberOfItsCause) {
  EXPECT_EQ(Told(RunEarly(script_, "StatCheck", "NANSI", List(std::vector<Value>{}))).substr(0, 8), "800A0009");
}

TEST_F(Calls, TheHostMayCallRunAgain) {
  std::vector<std::string> calls;
  AddHost([&](const ObjectCall& call) {
    calls.push_back(call.name);
    if (call.name == "scSQLSelectValuesAndDesc") {
      EXPECT_EQ(RunEarly(script_, "StatCheck", "NANSI", {"NUMTYP"}).value, Value(false));
    }
    call.Answer(Variant(Value(call.name != "scIsValueEqual")));
    return S_OK;
  });
  EXPECT_EQ(RunEarly(script_, "GetValidValForParam", "NANSI", {"NUMTYP"}).value, Value(true));
  EXPECT_EQ(calls, (std::vector<std::string>{"scSQLSelectValuesAndDesc", "scIsValueEqual", "scIsValueEqual"}));
}

TEST_F(Calls, TheObjectTellsItsTypeAndThatItTellsOfFailures) {
  Pointer<ITypeInfo> type;
  UINT count = 0;
  EXPECT_EQ(script_->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1U);
  ASSERT_EQ(script_->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Receive()), S_OK);
  EXPECT_EQ(script_->GetTypeInfo(1, LOCALE_USER_DEFAULT, type.Receive()), DISP_E_BADINDEX);
  const auto telling = script_.As<ISupportErrorInfo>();
  ASSERT_TRUE(telling);
  EXPECT_EQ(telling->InterfaceSupportsErrorInfo(__uuidof(_CScript)), S_OK);
  EXPECT_EQ(telling->InterfaceSupportsErrorInfo(__uuidof(IClassFactory)), S_FALSE);
}

}  // namespace
}  // namespace cordboard::com
