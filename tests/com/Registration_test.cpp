#include "com/Registration.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "com/support/Client.h"

namespace cordboard::com {
namespace {

bool HasKey(HKEY root, const wchar_t* key) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(root, (std::wstring(L"Software\\Classes\\") + key).c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
    return false;
  RegCloseKey(opened);
  return true;
}

constexpr const wchar_t* Keys[] = {
    L"Cordboard.CScript\\CLSID",
    L"CLSID\\{c9f5279d-6169-465c-9357-478a96faeac1}\\InprocServer32",
    L"Interface\\{7d60cb36-2569-415f-a8b9-c8eafb2fd073}\\ProxyStubClsid32",
    L"TypeLib\\{6613ded4-2c90-47c6-80f1-401ac5d72203}\\1.0\\0",
};

HRESULT CreateByName(Pointer<_CScript>& script) {
  CLSID clsid;
  const HRESULT known = CLSIDFromProgID(L"Cordboard.CScript", &clsid);
  if (FAILED(known)) return known;
  return CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(_CScript), script.ReceiveAny());
}

TEST(Registration, TheModuleRegistersItselfAndIsFoundByName) {
  ASSERT_EQ(LoadedModule().Call("DllRegisterServer"), S_OK);
  Pointer<_CScript> script;
  ASSERT_EQ(CreateByName(script), S_OK);
  EXPECT_EQ(RunEarly(script, "SetInfo", "UNKNOWN", List()).value, Value(false));
  script = {};

  Pointer<ITypeLib> library;
  const GUID id = {0x6613ded4, 0x2c90, 0x47c6, {0x80, 0xf1, 0x40, 0x1a, 0xc5, 0xd7, 0x22, 0x03}};
  EXPECT_EQ(LoadRegTypeLib(id, 1, 0, LOCALE_NEUTRAL, library.Receive()), S_OK);
  library = {};
  EXPECT_EQ(LoadedModule().Call("DllUnregisterServer"), S_OK);
}

TEST(Registration, ThePlatformUnloadsTheModuleWhenNothingOfItLives) {
  ASSERT_EQ(LoadedModule().Call("DllRegisterServer"), S_OK);
  Pointer<_CScript> script;
  ASSERT_EQ(CreateByName(script), S_OK);
  CoFreeUnusedLibrariesEx(0, 0);
  EXPECT_NE(GetModuleHandleW(L"cordboard.dll"), nullptr);
  script = {};
  CoFreeUnusedLibrariesEx(0, 0);
  EXPECT_EQ(GetModuleHandleW(L"cordboard.dll"), nullptr);
  EXPECT_EQ(LoadedModule().Call("DllUnregisterServer"), S_OK);
}

TEST(Registration, NothingIsLeftAfterIt) {
  LoadedModule module;
  ASSERT_EQ(module.Call("DllRegisterServer"), S_OK);
  EXPECT_EQ(module.Call("DllUnregisterServer"), S_OK);
  for (const wchar_t* key : Keys) {
    EXPECT_FALSE(HasKey(HKEY_LOCAL_MACHINE, key));
    EXPECT_FALSE(HasKey(HKEY_CURRENT_USER, key));
  }
  Pointer<_CScript> script;
  EXPECT_EQ(CreateByName(script), CO_E_CLASSSTRING);
  EXPECT_EQ(module.Call("DllUnregisterServer"), S_OK);
}

TEST(Registration, TheMachineAndTheUserHaveEntriesOfTheirOwn) {
  for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    HKEY other = root == HKEY_LOCAL_MACHINE ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
    ASSERT_EQ(Register(root), S_OK);
    for (const wchar_t* key : Keys) {
      EXPECT_TRUE(HasKey(root, key));
      EXPECT_FALSE(HasKey(other, key));
    }
    EXPECT_EQ(Unregister(root), S_OK);
    for (const wchar_t* key : Keys) EXPECT_FALSE(HasKey(root, key));
  }
}

TEST(Registration, TheTypeLibraryHoldsTheInterfaceAndTheClass) {
  LoadedModule module;
  const auto script = module.NewScript();
  Pointer<ITypeInfo> type;
  Pointer<ITypeLib> library;
  UINT index = 0;
  ASSERT_EQ(script->GetTypeInfo(0, LOCALE_NEUTRAL, type.Receive()), S_OK);
  ASSERT_EQ(type->GetContainingTypeLib(library.Receive(), &index), S_OK);
  ASSERT_EQ(library->GetTypeInfoCount(), 2U);
  std::set<std::wstring> names;
  for (UINT entry = 0; entry < 2; ++entry) {
    BSTR name = nullptr;
    library->GetDocumentation(static_cast<INT>(entry), &name, nullptr, nullptr, nullptr);
    names.insert(name);
    SysFreeString(name);
  }
  EXPECT_EQ(names, (std::set<std::wstring>{L"_CScript", L"CScript"}));
}

}  // namespace
}  // namespace cordboard::com
