#include "workbench/Messages.h"

#include <nlohmann/json.hpp>

#include "script/Conversions.h"
#include "workbench/Resources.h"

namespace cordboard::workbench {

namespace {

const nlohmann::json& Catalogue() {
  static const auto catalogue = nlohmann::json::parse(Resource("messages.json"));
  return catalogue;
}

std::string Filled(std::string text, const std::vector<Value>& arguments) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string place = "{" + std::to_string(i + 1) + "}";
    const std::string argument = Joined(arguments[i]);
    for (std::size_t at = text.find(place); at != text.npos; at = text.find(place, at + argument.size()))
      text.replace(at, place.size(), argument);
  }
  return text;
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
