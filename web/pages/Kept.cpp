// A page that was made of a form that was sent.
#include <charconv>

#include "web/pages/Pages.h"

namespace cordboard::web {

Answer Kept(const Visit& visit, const Request& request) {
  const std::string& text = request.query["page"];
  std::size_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  if (auto page = visit.Kept(number)) return std::move(*page);
  throw Failed(NotFound, "This page is gone. What was done stands in the history.");
}

}  // namespace cordboard::web
