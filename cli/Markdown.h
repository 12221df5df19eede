// The Markdown of the pages, as far as they use it: headings, paragraphs, lists, tables, indented lines as they stand,
// and `typed text`, **weight** and [links](page.md) in a line.
#pragma once

#include <string>
#include <string_view>

namespace cordboard::cli {

// For a terminal: without the marks within lines.
std::string AsText(std::string_view markdown);

// A manual page. Its first heading is "# TOPIC: what it is in a line"; `name` is what the page is called. Rows of
// tables become items: the first cell and, under it, the others.
std::string AsManualPage(std::string_view markdown, const std::string& name, int section);

}  // namespace cordboard::cli
