// The Markdown of the pages as markup, as far as they use it: headings, paragraphs, lists, tables, indented lines as
// they stand, and `typed text`, **weight** and [links](page.md) in a line.
#pragma once

#include <functional>
#include <string>

#include "web/Html.h"

namespace cordboard::web {

// Where a typed text or the page of a link leads on this site; nothing where it leads nowhere.
using LinkTarget = std::function<std::string(const std::string& typed)>;

// A heading "# " is left out: it is that of the page. `caption` says what tables are.
Html AsHtml(const std::string& markdown, const std::string& caption, const LinkTarget& targetOf);
// The same of the text within a line.
Html LineAsHtml(const std::string& markdown, const LinkTarget& targetOf);

}  // namespace cordboard::web
