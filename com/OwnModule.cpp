#include "com/OwnModule.h"

namespace cordboard::com {

std::wstring ModulePath() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&ModulePath), &module);
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(2 * path.size());
  }
}

HRESULT LoadOwnTypeLibrary(Pointer<ITypeLib>& library) {
  return LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.Receive());
}

}  // namespace cordboard::com
