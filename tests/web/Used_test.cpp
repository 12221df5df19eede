#include "web/OfficeTest.h"

namespace cordboard::web {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class UsedPage : public OfficeTest {};

TEST_F(UsedPage, ShowsWhoRefersToAValueWithTheWayThere) {
  const Answer answer = Ask("/used?value=100");
  EXPECT_EQ(answer.status, Ok);
  EXPECT_THAT(answer.body, AllOf(HasSubstr("<h2>number 100 of type EX, in use</h2>"), HasSubstr("<h2>port 100</h2>"),
                                 HasSubstr("<a href=\"/form?command=KSEXI&amp;of=CMDID%3D"),
                                 HasSubstr("taken by the key extension DIR=100 (KSEXI) as DIR</a>")));
  EXPECT_THAT(Ask("/used?value=100&thing=port").body, Not(HasSubstr("number 100")));
}

TEST_F(UsedPage, TellsWhereNothingIs) {
  EXPECT_EQ(Ask("/used").status, Ok);
  const Answer answer = Ask("/used?value=<b>nix");
  EXPECT_EQ(answer.status, NotFound);
  EXPECT_THAT(answer.body, AllOf(HasSubstr("There is no thing &lt;b&gt;nix, and nothing refers to one."),
                                 HasSubstr("value=\"&lt;b&gt;nix\"")));
  EXPECT_THAT(TextOf(Ask("/used?value=100&thing=numbr")), HasSubstr("nothing is called numbr. Did you mean number?"));
  EXPECT_EQ(Ask("/used?value=100&thing=numbr").status, NotFound);
}

}  // namespace
}  // namespace cordboard::web
