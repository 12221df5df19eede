#include "workbench/data/DataTree.h"

#include <nlohmann/json.hpp>
#include <set>
#include <stdexcept>

#include "workbench/text/Utf8.h"

namespace cordboard::workbench {

namespace {

using Kind = DataNode::Kind;

// Takes a JSON text from its reader, piece by piece.
class Builder : public nlohmann::json_sax<nlohmann::json> {
 public:
  OwnDataTree Finish() { return std::move(tree_); }

  bool null() override { return Add(Kind::Null); }
  bool boolean(bool value) override { return Add(Kind::Truth, value ? "true" : ""); }
  bool number_integer(number_integer_t value) override { return Add(Kind::Number, std::to_string(value)); }
  bool number_unsigned(number_unsigned_t value) override { return Add(Kind::Number, std::to_string(value)); }
  bool number_float(number_float_t, const string_t& written) override { return Add(Kind::Number, written); }
  bool string(string_t& value) override { return Add(Kind::Text, value); }
  bool binary(binary_t&) override { return false; }  // stands in no JSON

  bool start_object(std::size_t) override { return Start(Kind::Object); }
  bool end_object() override { return End(); }
  bool start_array(std::size_t) override { return Start(Kind::List); }
  bool end_array() override { return End(); }

  // The reader of JSON would take the last of two fields with the same key in silence.
  bool key(string_t& value) override {
    if (!open_.back().keys.insert(value).second)
      throw std::runtime_error("the key \"" + value + "\" stands there twice in one object");
    key_ = Keep(value);
    return true;
  }

  // The reader's own words, without its mark in front: "parse error at line 1, column 2: ...".
  bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception& error) override {
    const std::string text = error.what();
    const std::size_t mark = text.find("] ");
    throw std::runtime_error(mark == text.npos ? text : text.substr(mark + 2));
  }

 private:
  struct Open {
    std::size_t node;
    std::set<std::string> keys = {};
  };

  TextPlace Keep(std::string_view text) {
    const TextPlace place{static_cast<std::uint32_t>(tree_.texts.size()), static_cast<std::uint32_t>(text.size())};
    tree_.texts += text;
    return place;
  }

  bool Add(Kind kind, std::string_view text = "") {
    tree_.nodes.push_back({.kind = kind, .key = std::exchange(key_, {}), .text = Keep(text)});
    return true;
  }

  bool Start(Kind kind) {
    open_.push_back({tree_.nodes.size()});
    return Add(kind);
  }

  bool End() {
    tree_.nodes[open_.back().node].size = static_cast<std::uint32_t>(tree_.nodes.size() - open_.back().node);
    open_.pop_back();
    return true;
  }

  OwnDataTree tree_;
  std::vector<Open> open_;
  TextPlace key_;
};

}  // namespace

OwnDataTree ParseData(std::string_view json) {
  if (!IsUtf8(json)) throw std::runtime_error("this is not UTF-8 text");
  Builder builder;
  nlohmann::json::sax_parse(json, &builder);
  return builder.Finish();
}

}  // namespace cordboard::workbench
