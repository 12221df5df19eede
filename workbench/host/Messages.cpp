#include "workbench/host/Messages.h"

#include <map>
#include <utility>

#include "script/Conversions.h"
#include "workbench/data/DataFile.h"

namespace cordboard::workbench {

namespace {

// The text for each code and number of arguments.
const std::map<std::pair<std::string, std::size_t>, std::string>& Catalogue() {
  static const auto catalogue = [] {
    std::map<std::pair<std::string, std::size_t>, std::string> texts;
    for (const auto& [code, byCount] : ReadResource("messages.json").Entries()) {
      for (const auto& [count, text] : byCount.Entries()) {
        if (count.size() != 1 || count < "0" || count > "9") text.Fail("a number of arguments is one digit");
        texts[{code, static_cast<std::size_t>(count[0] - '0')}] = text.Text();
      }
    }
    return texts;
  }();
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
  const auto text = Catalogue().find({Joined(code), arguments.size()});
  if (text != Catalogue().end()) return Filled(text->second, arguments);
  std::string fallback = "Message " + Joined(code) + " was reported";
  for (const Value& argument : arguments)
    fallback += (&argument == &arguments.front() ? ": " : ", ") + Joined(argument);
  return fallback + ".";
}

}  // namespace cordboard::workbench
