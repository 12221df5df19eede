// Counted references, the end of objects and of the module.

#include <gtest/gtest.h>

#include "com/support/AutomationHost.h"
#include "com/support/Client.h"

namespace cordboard::com {
namespace {

constexpr const char* NoHost = "800A005B Cordboard.CScript: the library has no host: call AddObject first";

// Asks the host one question.
Outcome Ask(const Pointer<_CScript>& script) { return RunEarly(script, "GetValidValForParam", "NANSI", {"NUMTYP"}); }

TEST(Lifetime, TheModuleStaysWhileAnythingOfItLives) {
  LoadedModule module;
  EXPECT_TRUE(module.CanUnloadNow());
  auto factory = module.Factory();
  EXPECT_FALSE(module.CanUnloadNow());
  factory = {};
  EXPECT_TRUE(module.CanUnloadNow());
  auto script = module.NewScript();
  EXPECT_FALSE(module.CanUnloadNow());
  script = {};
  EXPECT_TRUE(module.CanUnloadNow());
}

TEST(Lifetime, LocksOfTheFactoryCount) {
  LoadedModule module;
  EXPECT_EQ(module.Factory()->LockServer(TRUE), S_OK);
  EXPECT_EQ(module.Factory()->LockServer(TRUE), S_OK);
  EXPECT_EQ(module.Factory()->LockServer(FALSE), S_OK);
  EXPECT_FALSE(module.CanUnloadNow());
  EXPECT_EQ(module.Factory()->LockServer(FALSE), S_OK);
  EXPECT_TRUE(module.CanUnloadNow());
}

TEST(Lifetime, TheFactoryRefusesAggregationAndOtherInterfacesAndClasses) {
  LoadedModule module;
  const auto factory = module.Factory();
  void* object = &module;
  EXPECT_EQ(factory->CreateInstance(factory.get(), __uuidof(IUnknown), &object), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IClassFactory), &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_FALSE(factory.As<IDispatch>());
  const auto get = reinterpret_cast<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>(
      reinterpret_cast<void*>(module.Function("DllGetClassObject")));
  EXPECT_EQ(get(__uuidof(IUnknown), __uuidof(IClassFactory), &object), CLASS_E_CLASSNOTAVAILABLE);
}

TEST(Lifetime, AllInterfacesAreOneObject) {
  LoadedModule module;
  const auto script = module.NewScript();
  const auto unknown = script.As<IUnknown>();
  EXPECT_EQ(script.As<ISupportErrorInfo>().As<IUnknown>().get(), unknown.get());
  EXPECT_EQ(script.As<IDispatch>().As<IUnknown>().get(), unknown.get());
  EXPECT_EQ(script->AddRef(), 3U);
  EXPECT_EQ(script->Release(), 2U);
}

TEST(Lifetime, AddObjectHoldsTheHostAndReplacesIt) {
  LoadedModule module;
  const auto script = module.NewScript();
  const auto host = AgreeingHost();
  EXPECT_EQ(script->AddObject(host.get()), S_OK);
  EXPECT_EQ(host->references(), 2U);
  EXPECT_EQ(script->AddObject(AgreeingHost().get()), S_OK);
  EXPECT_EQ(host->references(), 1U);
  EXPECT_EQ(Ask(script).value, Value(true));
  EXPECT_EQ(script->AddObject(nullptr), S_OK);
  EXPECT_EQ(Told(Ask(script)), NoHost);
}

TEST(Lifetime, TheHostIsThatOfAllObjects) {
  LoadedModule module;
  const auto script = module.NewScript();
  const auto other = module.NewScript();
  EXPECT_EQ(script->AddObject(AgreeingHost().get()), S_OK);
  EXPECT_EQ(Ask(other).value, Value(true));
}

TEST(Lifetime, DestroyAndTheEndOfAnyObjectDropTheHost) {
  LoadedModule module;
  const auto script = module.NewScript();
  auto other = module.NewScript();
  const auto host = AgreeingHost();
  script->AddObject(host.get());
  EXPECT_EQ(other->Destroy(), S_OK);
  EXPECT_EQ(host->references(), 1U);
  EXPECT_EQ(Told(Ask(script)), NoHost);
  script->AddObject(host.get());
  other = {};
  EXPECT_EQ(host->references(), 1U);
  EXPECT_EQ(Told(Ask(script)), NoHost);
}

TEST(Lifetime, AnObjectLivesUntilItsRunEnds) {
  LoadedModule module;
  Pointer<_CScript> script = module.NewScript();
  bool unloadable = true;
  const auto host = AutomationHost::Make([&](const ObjectCall& call) {
    script = {};  // the last reference but the one that Run holds
    unloadable = module.CanUnloadNow();
    call.Answer(Variant(Value(true)));
    return S_OK;
  });
  script->AddObject(host.get());
  _CScript* bare = script.get();
  LONG number = 0;
  Variant release(Value("R8"));
  Variant function(Value("GetValidValForParam"));
  Variant command(Value("NANSI"));
  Variant list;
  list.vt = VT_ARRAY | VT_VARIANT;
  list.parray = SafeArrayCreateVector(VT_VARIANT, 0, 1);
  Variant parameter(Value("NUMTYP"));
  LONG index = 0;
  SafeArrayPutElement(list.parray, &index, &parameter);
  Variant result;
  EXPECT_EQ(bare->Run(&number, &release.bstrVal, &function.bstrVal, &command.bstrVal, &number, &list, &result), S_OK);
  EXPECT_EQ(ToValue(result), Value(true));
  EXPECT_FALSE(unloadable);
  EXPECT_TRUE(module.CanUnloadNow());
  EXPECT_EQ(host->references(), 1U);
}

TEST(Lifetime, TheModuleCanBeLoadedAgain) {
  for (int time = 0; time < 3; ++time) {
    LoadedModule module;
    const auto script = module.NewScript();
    script->AddObject(AgreeingHost().get());
    EXPECT_EQ(Ask(script).value, Value(true));
  }
  EXPECT_EQ(GetModuleHandleW(L"cordboard.dll"), nullptr);
}

}  // namespace
}  // namespace cordboard::com
