#include "com/WideText.h"

#include <new>

namespace cordboard::com {

std::wstring ToWide(std::string_view text) {
  const int length = static_cast<int>(text.size());
  std::wstring wide(MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string FromWide(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  std::string narrow(WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), static_cast<int>(narrow.size()), nullptr,
                      nullptr);
  return narrow;
}

std::string FromBstr(BSTR text) { return text == nullptr ? "" : FromWide({text, SysStringLen(text)}); }

BSTR ToBstr(std::string_view text) {
  const std::wstring wide = ToWide(text);
  BSTR made = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (made == nullptr) throw std::bad_alloc();
  return made;
}

}  // namespace cordboard::com
