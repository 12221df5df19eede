#include "workbench/text/Utf8.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace cordboard::workbench {
namespace {

std::string Encoded(std::uint32_t code) {
  std::string text;
  const auto put = [&text](std::uint32_t byte) { text += static_cast<char>(byte); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | code >> 6);
    put(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    put(0xE0 | code >> 12);
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  } else {
    put(0xF0 | code >> 18);
    put(0x80 | (code >> 12 & 0x3F));
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  }
  return text;
}

TEST(Utf8, EveryCharacterIsTaken) {
  for (std::uint32_t code = 0; code <= 0x10FFFF; ++code) {
    if (code >= 0xD800 && code <= 0xDFFF) continue;
    ASSERT_TRUE(IsUtf8(Encoded(code))) << code;
  }
}

TEST(Utf8, SurrogatesAndCodesBeyondTheLastAreRefused) {
  for (std::uint32_t code = 0xD800; code <= 0xDFFF; ++code) ASSERT_FALSE(IsUtf8(Encoded(code))) << code;
  for (std::uint32_t code = 0x110000; code <= 0x1FFFFF; ++code) ASSERT_FALSE(IsUtf8(Encoded(code))) << code;
}

TEST(Utf8, LongerFormsThanNeededAreRefused) {
  for (const char* text :
       {"\xC0\x80", "\xC1\xBF", "\xE0\x80\x80", "\xE0\x9F\xBF", "\xF0\x80\x80\x80", "\xF0\x8F\xBF\xBF"})
    EXPECT_FALSE(IsUtf8(text));
}

TEST(Utf8, PiecesOfCharactersAreRefused) {
  for (const char* text :
       {"\x80", "\xBF", "\xC3", "a\xE2\x82", "\xF0\x9F\x98", "\xC3(", "\xE2(\xAC", "\xE2\x82(", "\xFF", "\xFE"})
    EXPECT_FALSE(IsUtf8(text));
}

TEST(Utf8, WholeTexts) {
  EXPECT_TRUE(IsUtf8(""));
  EXPECT_TRUE(IsUtf8("Bürgermeister, 2. Stock \xF0\x9F\x93\x9E"));
  EXPECT_TRUE(IsUtf8(std::string_view("a\0b", 3)));
  EXPECT_FALSE(IsUtf8("B\xFCrgermeister"));
}

}  // namespace
}  // namespace cordboard::workbench
