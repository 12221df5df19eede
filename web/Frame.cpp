#include "web/Frame.h"

namespace cordboard::web {

namespace {

constexpr std::pair<const char*, const char*> ways[] = {
    {"/", "Commands"},       {"/plan", "This visit"}, {"/lines", "Lines"},
    {"/history", "History"}, {"/compare", "Compare"}, {"/used", "Used by"},
};

Html Head(const std::string& title) {
  return Element("head",
                 Element("meta", {{"charset", "utf-8"}}) +
                     Element("meta", {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}}) +
                     Element("title", title) + Element("link", {{"rel", "stylesheet"}, {"href", "/style.css"}}) +
                     Element("link", {{"rel", "icon"}, {"href", "/icon.svg"}}) +
                     Element("script", {{"src", "/page.js"}, {"defer", ""}}));
}

Html Ways() {
  Html links;
  for (const auto& [address, text] : ways) links += Element("li", Link(address, text));
  return Element("nav", {{"aria-label", "Pages"}}, Element("ul", links));
}

Html Top(const Visit& visit) {
  Html name = Element("strong", visit.Name());
  if (visit.readOnly()) name += Element("span", {{"class", "mark"}}, "only read");
  return Element("header", Element("a", {{"class", "skip"}, {"href", "#main"}}, "To the page itself") +
                               Element("p", {{"class", "exchange"}}, name) + Ways());
}

}  // namespace

Answer Page(const Visit& visit, const std::string& title, const Html& content, int status) {
  const Html body = Top(visit) + Element("main", {{"id", "main"}, {"tabindex", "-1"}}, Element("h1", title) + content) +
                    Element("p", {{"id", "status"}, {"role", "status"}});
  const Html page = Element("html", {{"lang", "en"}}, Head(title + " - " + visit.Name()) + Element("body", body));
  return {.status = status, .body = "<!DOCTYPE html>" + page.markup()};
}

Html ChangingForm(const Visit& visit, const std::string& address, const Attributes& attributes, const Html& content) {
  Attributes all = {{"method", "post"}, {"action", address}, {"accept-charset", "utf-8"}};
  all.insert(all.end(), attributes.begin(), attributes.end());
  return Element("form", all, Hidden("proof", visit.proof()) + content);
}

Html Notice(const std::string& kind, const Html& content) {
  const bool isUrgent = kind == "error" || kind == "warning";
  return Element("div", {{"class", "notice " + kind}, {"role", isUrgent ? "alert" : "status"}}, content);
}

Html Table(const std::string& caption, const std::vector<Html>& headings, const std::vector<std::vector<Html>>& rows) {
  Html head;
  for (const Html& heading : headings) head += Element("th", {{"scope", "col"}}, heading);
  Html body;
  for (const std::vector<Html>& row : rows) {
    Html cells;
    for (const Html& cell : row) cells += Element("td", cell);
    body += Element("tr", cells);
  }
  return Element(
      "div", {{"class", "wide"}, {"tabindex", "0"}, {"role", "region"}, {"aria-label", caption}},
      Element("table", Element("caption", caption) + Element("thead", Element("tr", head)) + Element("tbody", body)));
}

}  // namespace cordboard::web
