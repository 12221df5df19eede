// A seeded source of choices: the same seed makes the same ones on every machine.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace cordboard {

class Random {
 public:
  explicit Random(std::uint32_t seed) : source_(seed) {}
  // A source of its own for each name.
  Random(std::uint32_t seed, std::string_view name) : source_(seed) {
    for (const char c : name) source_.seed(source_() ^ static_cast<unsigned char>(c));
  }

  std::size_t Below(std::size_t count) { return source_() % count; }
  bool Chance(unsigned percent) { return Below(100) < percent; }
  template <typename Element>
  const Element& Of(const std::vector<Element>& elements) {
    return elements[Below(elements.size())];
  }
  // Between `least` and `most` of the characters.
  std::string TextOf(std::string_view characters, std::size_t least, std::size_t most) {
    std::string text(least + Below(most - least + 1), ' ');
    for (char& c : text) c = characters[Below(characters.size())];
    return text;
  }

 private:
  std::mt19937 source_;
};

}  // namespace cordboard
