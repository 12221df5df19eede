#include "script/Text.h"

#include "script/RunTimeFailure.h"

namespace cordboard {

namespace {

// The number of bytes of the character at the beginning of `text`.
std::size_t CharacterSize(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  const std::size_t size = first < 0xC2 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : first < 0xF5 ? 4 : 1;
  if (size > text.size()) return 1;
  for (std::size_t i = 1; i < size; ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) return 1;
  }
  return size;
}

// The byte at which character `count` (from 0) begins, the size of the text where it has fewer.
std::size_t ByteOf(std::string_view text, std::size_t count) {
  std::size_t at = 0;
  for (; count > 0 && at < text.size(); --count) at += CharacterSize(text.substr(at));
  return at;
}

std::size_t Checked(std::ptrdiff_t count) {
  if (count < 0) throw RunTimeFailure(RunTimeFailure::Cause::InvalidCall, "a part of a text has a negative length");
  return static_cast<std::size_t>(count);
}

}  // namespace

std::size_t Length(std::string_view text) {
  std::size_t length = 0;
  for (; !text.empty(); ++length) text.remove_prefix(CharacterSize(text));
  return length;
}

std::string Left(std::string_view text, std::ptrdiff_t count) {
  return std::string(text.substr(0, ByteOf(text, Checked(count))));
}

std::string Right(std::string_view text, std::ptrdiff_t count) {
  const std::size_t wanted = Checked(count);
  const std::size_t length = Length(text);
  return std::string(text.substr(wanted >= length ? 0 : ByteOf(text, length - wanted)));
}

std::string Middle(std::string_view text, std::ptrdiff_t start, std::ptrdiff_t count) {
  const std::string_view rest = text.substr(ByteOf(text, Checked(start - 1)));
  return std::string(rest.substr(0, ByteOf(rest, Checked(count))));
}

std::string_view TrimLeftBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == text.npos ? std::string_view() : text.substr(first);
}

std::string_view TrimBlanks(std::string_view text) {
  const std::string_view rest = TrimLeftBlanks(text);
  return rest.substr(0, rest.find_last_not_of(' ') + 1);
}

}  // namespace cordboard
