#include "web/Frame.h"

#include <sstream>

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

Html Table(const std::string& caption, const std::vector<Heading>& headings,
           const std::vector<std::vector<Html>>& rows) {
  Html head;
  for (const auto& [content, attributes] : headings) {
    Attributes all = {{"scope", "col"}};
    all.insert(all.end(), attributes.begin(), attributes.end());
    head += Element("th", all, content);
  }
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

Html AsLines(const std::vector<Html>& lines) {
  Html content;
  for (const Html& line : lines) content += line + Element("br");
  return Element("pre", {{"class", "lines"}}, content);
}

Html AsLines(const std::string& text) {
  std::vector<Html> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.emplace_back(line);
  return AsLines(lines);
}

Answer AsFile(const std::string& name, std::string text) {
  return {.body = std::move(text),
          .type = "text/plain; charset=utf-8",
          .headers = {{"Content-Disposition", "attachment; filename=\"" + name + "\""}}};
}

Html Choice(const std::string& name, const std::string& label,
            const std::vector<std::pair<std::string, std::string>>& values, const std::string& chosen) {
  Html options;
  for (const auto& [value, words] : values) {
    Attributes attributes = {{"value", value}};
    if (value == chosen) attributes.emplace_back("selected", "");
    options += Element("option", attributes, words);
  }
  return Element("label", {{"for", name}}, label) + Element("select", {{"id", name}, {"name", name}}, options);
}

}  // namespace cordboard::web
