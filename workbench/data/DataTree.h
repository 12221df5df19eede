// A data file as a flat tree: each node is followed by what it holds, in the order of the file. Nothing in it points
// anywhere, so that the build makes the trees of the files that the program carries (tools/embed.cpp), and no start of
// the program reads them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace cordboard::workbench {

// A stretch of the tree's texts.
struct TextPlace {
  std::uint32_t at = 0;
  std::uint32_t length = 0;
};

struct DataNode {
  enum class Kind : std::uint8_t { Null, Truth, Number, Text, List, Object };

  Kind kind = Kind::Null;
  std::uint32_t size = 1;  // how many nodes it is, with all that it holds
  TextPlace key = {};      // of an entry of an object
  TextPlace text = {};     // a text; a number as it is written, and of truths "true" alone
};

// Made elsewhere, and not held.
struct DataTree {
  std::span<const DataNode> nodes;
  std::string_view texts;

  std::string_view Text(TextPlace place) const { return texts.substr(place.at, place.length); }
};

struct OwnDataTree {
  std::vector<DataNode> nodes = {};
  std::string texts = {};

  operator DataTree() const { return {nodes, texts}; }
};

// The tree of a JSON text. Fails with a std::runtime_error where it is not UTF-8, no JSON, or has a key twice in one
// object.
OwnDataTree ParseData(std::string_view json);

}  // namespace cordboard::workbench
