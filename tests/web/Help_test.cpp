#include "web/Markdown.h"
#include "web/OfficeTest.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::web {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class HelpPage : public OfficeTest {};

TEST_F(HelpPage, IsThereForEveryCommandAndParameter) {
  for (const workbench::FormDefinition* form : workbench::Forms()) {
    const Answer answer = Ask("/help?command=" + form->command);
    EXPECT_EQ(answer.status, Ok) << form->command;
    EXPECT_THAT(answer.body, AllOf(HasSubstr("<h1>" + form->command + ": "), HasSubstr("<table>"), Not(HasSubstr("`")),
                                   Not(testing::ContainsRegex("[^*][*][*][^*]")), Not(HasSubstr("# "))))
        << form->command;
    const std::string name = form->parameters[form->parameters.size() - 1].name;
    EXPECT_EQ(Ask("/help?command=" + form->command + "&parameter=" + name).status, Ok) << form->command << " " << name;
  }
}

TEST_F(HelpPage, LeadsToTheParametersAndToOtherCommands) {
  EXPECT_THAT(Ask("/help?command=KSEXI").body,
              AllOf(HasSubstr("<a href=\"/help?command=KSEXI&amp;parameter=DIR\"><code>DIR</code></a>"),
                    HasSubstr("<a href=\"/help?command=KSEXITEMPLATE\"><code>KSEXITEMPLATE</code></a>"),
                    HasSubstr("<a href=\"/records?command=KSEXI\">")));
}

TEST_F(HelpPage, OfAParameterHasItsFixedValues) {
  const std::string text = TextOf(Ask("/help?command=NANSI&parameter=NUMTYP"));
  EXPECT_THAT(text, AllOf(HasSubstr("Fixed values, all releases"), HasSubstr("EX Extension numbers")));
  EXPECT_THAT(TextOf(Ask("/help?command=KSEXI&parameter=DIR")), HasSubstr("It goes in step with EQU"));
}

TEST_F(HelpPage, TellsOfWhatThereIsNot) {
  EXPECT_EQ(Ask("/help?command=NOTHING").status, NotFound);
  EXPECT_THAT(TextOf(Ask("/help?command=KSEXI&parameter=DIRX")), HasSubstr("Did you mean DIR?"));
  EXPECT_EQ(Ask("/help?command=KSEXI&parameter=DIRX").status, NotFound);
}

TEST(Markdown, BecomesMarkup) {
  const LinkTarget nowhere = [](const std::string& typed) { return typed == "OTHER" ? "/other" : ""; };
  const std::string text =
      "# Title\n\nA paragraph\nof `two <lines>`, **with `weight`**.\n\n- one\n- two\n  lines\n\n    as it\n\n      "
      "stands"
      "\n\n## Part\n| Name | |\n| --- | --- |\n| `A` | [there](OTHER.md) |\n\n[nowhere](x.md) and `OTHER`\n";
  EXPECT_EQ(AsHtml(text, "Names", nowhere).markup(),
            "<p>A paragraph of <code>two &lt;lines&gt;</code>, <strong>with <code>weight</code></strong>.</p>"
            "<ul><li>one</li><li>two lines</li></ul>"
            "<pre class=\"lines\">as it<br><br>  stands<br></pre>"
            "<h2>Part</h2>"
            "<div class=\"wide\" tabindex=\"0\" role=\"region\" aria-label=\"Names\"><table><caption>Names</caption>"
            "<thead><tr><th scope=\"col\">Name</th><th scope=\"col\">Notes</th></tr></thead>"
            "<tbody><tr><td><code>A</code></td><td><a href=\"/other\">there</a></td></tr></tbody></table></div>"
            "<p>nowhere and <a href=\"/other\"><code>OTHER</code></a></p>");
}

}  // namespace
}  // namespace cordboard::web
