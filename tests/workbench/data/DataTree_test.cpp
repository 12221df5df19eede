#include "workbench/data/DataTree.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "workbench/data/Resources.h"

namespace cordboard::workbench {
namespace {

using Json = nlohmann::ordered_json;
using Kind = DataNode::Kind;

// What a node stands for, read once more.
Json JsonOf(const DataTree& tree, const DataNode& node) {
  switch (node.kind) {
    case Kind::Null: return nullptr;
    case Kind::Truth: return node.text.length > 0;
    case Kind::Number: return Json::parse(tree.Text(node.text));
    case Kind::Text: return tree.Text(node.text);
    default: break;
  }
  Json whole = node.kind == Kind::List ? Json::array() : Json::object();
  for (const DataNode* held = &node + 1; held != &node + node.size; held += held->size) {
    if (node.kind == Kind::List) {
      whole.push_back(JsonOf(tree, *held));
    } else {
      whole[std::string(tree.Text(held->key))] = JsonOf(tree, *held);
    }
  }
  return whole;
}

Json JsonOf(const DataTree& tree) { return JsonOf(tree, tree.nodes.front()); }

TEST(DataTree, HoldsWhatTheTextHolds) {
  for (const char* text :
       {"7", "-0.5e3", "true", "false", "null", R"("")", R"("a\n\u00e4\"")", "[]", "{}",
        R"({"b": [1, [2, {}], null, "x"], "a": {"c": false, "": 12345678901234567890}, "d": 1e99})"}) {
    EXPECT_EQ(JsonOf(ParseData(text)), Json::parse(text)) << text;
  }
}

TEST(DataTree, WhatTheProgramCarriesIsWhatStandsInItsFiles) {
  std::size_t count = 0;
  for (const auto& [path, text] : Resources()) {
    if (!path.ends_with(".json")) continue;
    ++count;
    ASSERT_TRUE(ResourceTrees().contains(path)) << path;
    EXPECT_EQ(JsonOf(ResourceTrees().at(path)), Json::parse(text)) << path;
  }
  EXPECT_EQ(count, ResourceTrees().size());
}

}  // namespace
}  // namespace cordboard::workbench
