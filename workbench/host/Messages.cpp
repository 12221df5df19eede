#include "workbench/host/Messages.h"

#include <nlohmann/json.hpp>

#include "script/Conversions.h"
#include "workbench/data/Resources.h"

namespace cordboard::workbench {

namespace {

const nlohmann::json& Catalogue() {
  static const auto catalogue = nlohmann::json::parse(Resource("messages.json"));
  return catalogue;
}

// Place-holders are {1} to {9}. One pass, so that an argument that looks like one stays as it is.
std::string Filled(const std::string& text, const std::vector<Value>& arguments) {
  std::string filled;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool place = text[i] == '{' && i + 2 < text.size() && text[i + 2] == '}';
    const std::size_t number = place ? static_cast<std::size_t>(text[i + 1] - '0') : 0;
    if (number >= 1 && number <= arguments.size()) {
      filled += Joined(arguments[number - 1]);
      i += 2;
    } else {
      filled += text[i];
    }
  }
  return filled;
}

}  // namespace

std::string MessageText(const Value& code, const std::vector<Value>& arguments) {
  const auto texts = Catalogue().find(Joined(code));
  if (texts != Catalogue().end()) {
    const auto text = texts->find(std::to_string(arguments.size()));
    if (text != texts->end()) return Filled(text->get<std::string>(), arguments);
  }
  std::string fallback = "Message " + Joined(code) + " was reported";
  for (const Value& argument : arguments)
    fallback += (&argument == &arguments.front() ? ": " : ", ") + Joined(argument);
  return fallback + ".";
}

}  // namespace cordboard::workbench
