#include "web/Fields.h"

#include <algorithm>
#include <charconv>

namespace cordboard::web {

namespace {

// A "%" stands with two hexadecimal digits for a byte, a "+" for a blank.
std::optional<std::string> Decoded(std::string_view encoded) {
  std::string text;
  for (std::size_t i = 0; i < encoded.size(); ++i) {
    if (encoded[i] != '%') {
      text += encoded[i] == '+' ? ' ' : encoded[i];
      continue;
    }
    unsigned char byte = 0;
    const std::string_view digits = encoded.substr(i + 1, 2);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
    if (digits.size() != 2 || error != std::errc() || end != digits.data() + 2) return std::nullopt;
    text += static_cast<char>(byte);
    i += 2;
  }
  return text;
}

std::string Encode(std::string_view text) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  constexpr std::string_view plain = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz-._~";
  std::string encoded;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (plain.find(c) != plain.npos) {
      encoded += c;
    } else {
      encoded += {'%', digits[byte >> 4], digits[byte & 15]};
    }
  }
  return encoded;
}

}  // namespace

std::optional<Fields> Fields::Read(std::string_view encoded) {
  Fields fields;
  while (!encoded.empty()) {
    const std::string_view field = encoded.substr(0, encoded.find('&'));
    encoded.remove_prefix(std::min(encoded.size(), field.size() + 1));
    const std::size_t equals = field.find('=');
    const auto name = Decoded(field.substr(0, equals));
    const auto value = Decoded(equals == field.npos ? "" : field.substr(equals + 1));
    if (!name || !value || fields.size() == mostFields) return std::nullopt;
    fields.Add(*name, *value);
  }
  return fields;
}

std::string Fields::Encoded() const {
  std::string encoded;
  for (const auto& [name, value] : all_) {
    if (!encoded.empty()) encoded += '&';
    encoded += Encode(name) + '=' + Encode(value);
  }
  return encoded;
}

const std::string& Fields::operator[](std::string_view name) const {
  static const std::string nothing;
  const auto found = std::ranges::find(all_, name, &std::pair<std::string, std::string>::first);
  return found == all_.end() ? nothing : found->second;
}

bool Fields::Has(std::string_view name) const {
  return std::ranges::find(all_, name, &std::pair<std::string, std::string>::first) != all_.end();
}

std::vector<std::string> Fields::Each(std::string_view name) const {
  std::vector<std::string> values;
  for (const auto& [each, value] : all_)
    if (each == name) values.push_back(value);
  return values;
}

}  // namespace cordboard::web
