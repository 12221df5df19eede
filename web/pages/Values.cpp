// The values that are valid now for one parameter of a form that is being filled in.
#include <algorithm>
#include <cctype>

#include "web/FilledForm.h"
#include "web/Told.h"
#include "web/pages/Pages.h"
#include "workbench/actions/EmptyList.h"
#include "workbench/forms/Unknown.h"

namespace cordboard::web {

namespace {

using workbench::ValidValue;
using workbench::ValueList;

// As many are offered; the others are found by typing.
constexpr std::size_t most = 50;
// Descriptions are searched in as many.
constexpr std::size_t searched = 500;

// Where the text has the part in it, in any capitals.
enum class Match { None, Within, Start };
Match MatchOf(const std::string& text, const std::string& part) {
  const auto isSame = [](unsigned char one, unsigned char other) { return std::tolower(one) == std::tolower(other); };
  const auto found = std::search(text.begin(), text.end(), part.begin(), part.end(), isSame);
  if (part.empty() || (found == text.begin() && !text.empty())) return Match::Start;
  return found == text.end() ? Match::None : Match::Within;
}

// The first values of the list that begin with the part, then those that have it further behind, then those that are
// described so; one more than are offered where there are more.
std::vector<ValidValue> Find(const ValueList& list, const std::string& part) {
  std::vector<ValidValue> found;
  for (const Match match : {Match::Start, Match::Within}) {
    if (found.size() > most || (match == Match::Within && part.empty())) continue;
    std::ranges::move(list.First(most + 1 - found.size(),
                                 {.accept = [&](const std::string& value) { return MatchOf(value, part) == match; }}),
                      std::back_inserter(found));
  }
  if (part.empty()) return found;
  for (ValidValue& each : list.First(searched)) {
    if (found.size() > most) break;
    if (MatchOf(each.description, part) != Match::None && std::ranges::find(found, each) == found.end())
      found.push_back(std::move(each));
  }
  return found;
}

Html Options(const std::vector<ValidValue>& values) {
  Html options;
  for (const auto& [value, description] : values) {
    if (!options.IsEmpty() && &value == &values.back().value && values.size() > most) break;
    options += Element("li", {{"role", "option"}, {"data-value", value}},
                       Element("span", {{"class", "value"}}, value) + " " + Element("span", description));
  }
  return options;
}

}  // namespace

Answer Values(const Visit& visit, const Request& request) {
  const SentForm sent(request.form);
  const std::string& name = request.form["parameter"];
  if (sent.form().Find(name) == nullptr) throw Failed(NotFound, workbench::UnknownParameter(sent.form(), name));
  if (sent.form().IsSecret(name)) throw Failed(NotFound, name + " has no list of values.");
  const auto exchange = visit.Read();
  std::shared_ptr<workbench::ListSources> sources;
  workbench::Session session(*exchange, [&sources](std::shared_ptr<Host> host) {
    return sources = std::make_shared<workbench::ListSources>(std::move(host));
  });
  workbench::Filling filling = sent.Fill(session, name);
  sources->Forget();
  const ValueList* list = filling.ListOf(name);
  const std::vector<ValidValue> values = list == nullptr ? std::vector<ValidValue>() : Find(*list, request.form["q"]);
  Html note;
  if (list == nullptr) {
    note = filling.problems().empty() ? "Any value may be typed here." : InWords(filling.problems().back());
  } else if (values.size() > most) {
    note = "There are more: type a part of what you look for.";
  } else if (values.empty() && request.form["q"].empty()) {
    note = WhyEmpty(filling, name, *sources);
  } else if (values.empty()) {
    note = "No value has this in it.";
  }
  const Html content =
      Element("ul", {{"role", "listbox"}, {"id", "options"}, {"aria-label", "Values of " + name}}, Options(values)) +
      (note.IsEmpty() ? Html() : Html(Element("p", {{"class", "note"}}, note)));
  if (request.wantsPart) return {.body = content.markup()};
  return Page(visit, TitleOf(sent) + ", values of " + name,
              content + ChangingForm(visit, "/form", {},
                                     HiddenForm(sent) + Element("button", {{"type", "submit"}}, "Back to the form")));
}

}  // namespace cordboard::web
