#include "web/Html.h"

#include <gmock/gmock.h>

namespace cordboard::web {
namespace {

TEST(Html, EscapesEveryText) {
  EXPECT_EQ(Html("<script>alert(1)</script>&\"'").markup(), "&lt;script&gt;alert(1)&lt;/script&gt;&amp;&quot;&#39;");
  EXPECT_EQ(Html("Ö \u2192 \U0001F4DE").markup(), "Ö \u2192 \U0001F4DE");
  EXPECT_EQ((Html("a") + "<" + std::string("b")).markup(), "a&lt;b");
  EXPECT_TRUE(Html("").IsEmpty());
}

TEST(Html, ShowsWhatCannotBeRead) {
  EXPECT_EQ(Html("a\x1b[31m\nb").markup(), "a\\u001b[31m\\nb");
  EXPECT_EQ(Html(std::string("a\0b", 3)).markup(), "a\\u0000b");
  EXPECT_EQ(Html("a\xff\xfe<").markup(), "a\uFFFD\uFFFD&lt;");
}

TEST(Html, EscapesAttributes) {
  EXPECT_EQ(Link("/x?a=1&b=\"'<>", "<b>").markup(), "<a href=\"/x?a=1&amp;b=&quot;&#39;&lt;&gt;\">&lt;b&gt;</a>");
  EXPECT_EQ(Hidden("n", "\xff\"").markup(), "<input type=\"hidden\" name=\"n\" value=\"\uFFFD&quot;\">");
}

TEST(Html, IsMadeOfElements) {
  EXPECT_EQ(Element("p", {{"class", "a"}, {"required", ""}}, Element("b", "x") + Element("br")).markup(),
            "<p class=\"a\" required><b>x</b><br></p>");
  EXPECT_EQ(Element("option", {{"value", ""}}, "all").markup(), "<option value>all</option>");
}

}  // namespace
}  // namespace cordboard::web
