// Names with their values, in the order in which they came: what stands behind the "?" of an address, or the values of
// a form that is sent.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cordboard::web {

// More than this no form and no address of ours has.
inline constexpr std::size_t mostFields = 2000;

class Fields {
 public:
  Fields() = default;
  Fields(std::initializer_list<std::pair<std::string, std::string>> fields) : all_(fields) {}

  // "DIR=100&EQU=001-0-10-02". Nothing where the text is no such list, or has too many of them.
  static std::optional<Fields> Read(std::string_view encoded);
  // The other way round.
  std::string Encoded() const;

  void Add(std::string name, std::string value) { all_.emplace_back(std::move(name), std::move(value)); }

  // The first value of the name, or the empty text; and whether there is one.
  const std::string& operator[](std::string_view name) const;
  bool Has(std::string_view name) const;
  // All of them.
  std::vector<std::string> Each(std::string_view name) const;

  auto begin() const { return all_.begin(); }
  auto end() const { return all_.end(); }
  std::size_t size() const { return all_.size(); }

 private:
  std::vector<std::pair<std::string, std::string>> all_;
};

}  // namespace cordboard::web
