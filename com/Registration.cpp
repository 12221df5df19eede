// This unit defines the identifiers that the interface's header declares.
#include <initguid.h>
//
#include "com/Registration.h"

#include <string>
#include <vector>

#include "com/Interface.h"
#include "com/OwnModule.h"

namespace cordboard::com {

namespace {

constexpr const wchar_t* Name = L"Cordboard.CScript";
constexpr const wchar_t* Description = L"The command scripts of the exchange";
// The platform's own marshaller for interfaces that a type library describes.
constexpr const wchar_t* Marshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* Bits = sizeof(void*) == 8 ? L"win64" : L"win32";

struct Entry {
  std::wstring key;
  std::wstring name;  // empty for the key's own value
  std::wstring text;
};

std::wstring Text(REFGUID guid) {
  wchar_t text[40];
  StringFromGUID2(guid, text, static_cast<int>(std::size(text)));
  return text;
}

std::wstring ClassKey() { return L"CLSID\\" + Text(__uuidof(::CScript)); }
std::wstring InterfaceKey() { return L"Interface\\" + Text(__uuidof(_CScript)); }
std::wstring LibraryKey() { return L"TypeLib\\" + Text(LIBID_Cordboard); }

std::vector<Entry> Entries() {
  const std::wstring version = LibraryKey() + L"\\1.0";
  return {
      {Name, L"", Description},
      {std::wstring(Name) + L"\\CLSID", L"", Text(__uuidof(::CScript))},
      {ClassKey(), L"", Description},
      {ClassKey() + L"\\ProgID", L"", Name},
      {ClassKey() + L"\\InprocServer32", L"", ModulePath()},
      {ClassKey() + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {ClassKey() + L"\\TypeLib", L"", Text(LIBID_Cordboard)},
      {ClassKey() + L"\\Version", L"", L"1.0"},
      {version, L"", L"Cordboard"},
      {version + L"\\0\\" + Bits, L"", ModulePath()},
      {version + L"\\FLAGS", L"", L"0"},
      {InterfaceKey(), L"", L"_CScript"},
      {InterfaceKey() + L"\\ProxyStubClsid32", L"", Marshaller},
      {InterfaceKey() + L"\\TypeLib", L"", Text(LIBID_Cordboard)},
      {InterfaceKey() + L"\\TypeLib", L"Version", L"1.0"},
  };
}

// Everything stands below this key of either root.
std::wstring Path(const std::wstring& key) { return L"Software\\Classes\\" + key; }

LSTATUS Write(HKEY root, const Entry& entry) {
  HKEY key = nullptr;
  const LSTATUS opened =
      RegCreateKeyExW(root, Path(entry.key).c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
  if (opened != ERROR_SUCCESS) return opened;
  const DWORD size = static_cast<DWORD>((entry.text.size() + 1) * sizeof(wchar_t));
  const LSTATUS written = RegSetValueExW(key, entry.name.empty() ? nullptr : entry.name.c_str(), 0, REG_SZ,
                                         reinterpret_cast<const BYTE*>(entry.text.c_str()), size);
  RegCloseKey(key);
  return written;
}

}  // namespace

HRESULT Register(HKEY root) {
  for (const Entry& entry : Entries()) {
    const LSTATUS written = Write(root, entry);
    if (written != ERROR_SUCCESS) return HRESULT_FROM_WIN32(written);
  }
  return S_OK;
}

HRESULT Unregister(HKEY root) {
  HRESULT answer = S_OK;
  for (const std::wstring& key : {std::wstring(Name), ClassKey(), InterfaceKey(), LibraryKey()}) {
    const LSTATUS removed = RegDeleteTreeW(root, Path(key).c_str());
    if (removed != ERROR_SUCCESS && removed != ERROR_FILE_NOT_FOUND) answer = HRESULT_FROM_WIN32(removed);
  }
  return answer;
}

}  // namespace cordboard::com
