// What all pages have around them: the head, the ways to the other pages, and who is meant.
#pragma once

#include <string>

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

// Rows under headings. It can be scrolled by itself where it is wider than the window; `caption` says what it is.
Html Table(const std::string& caption, const std::vector<Html>& headings, const std::vector<std::vector<Html>>& rows);

}  // namespace cordboard::web
