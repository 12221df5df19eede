// What all pages have around them: the head, the ways to the other pages, and who is meant.
#pragma once

#include <concepts>
#include <string>
#include <utility>
#include <vector>

#include "web/Html.h"
#include "web/Request.h"
#include "web/Visit.h"

namespace cordboard::web {

// A whole page. `title` is its heading as well.
Answer Page(const Visit& visit, const std::string& title, const Html& content, int status = Ok);

// A form that changes something: it is sent to the address, with the proof that it is ours.
Html ChangingForm(const Visit& visit, const std::string& address, const Attributes& attributes, const Html& content);

// What is told apart from the page's own text. `kind` is "error", "warning", "note" or "done".
Html Notice(const std::string& kind, const Html& content);

// What stands above a column, and what else is said of it (`aria-sort`).
struct Heading {
  template <std::convertible_to<Html> Content>
  Heading(const Content& text) : content(text) {}
  Heading(Html linked, Attributes said) : content(std::move(linked)), attributes(std::move(said)) {}

  Html content;
  Attributes attributes = {};
};

// Rows under headings. It can be scrolled by itself where it is wider than the window; `caption` says what it is.
Html Table(const std::string& caption, const std::vector<Heading>& headings,
           const std::vector<std::vector<Html>>& rows);

// Lines as they stand, one under the other; those of a text.
Html AsLines(const std::vector<Html>& lines);
Html AsLines(const std::string& text);

// A text as a file, which the browser keeps.
Answer AsFile(const std::string& name, std::string text);

// A choice of one value, each with its words; `chosen` is the one that is shown.
Html Choice(const std::string& name, const std::string& label,
            const std::vector<std::pair<std::string, std::string>>& values, const std::string& chosen);

}  // namespace cordboard::web
