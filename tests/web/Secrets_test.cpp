#include "web/OfficeTest.h"

namespace cordboard::web {
namespace {

class SecretsOnPages : public OfficeTest {
 protected:
  SecretsOnPages() { OpenAnew(); }

  Fields Form() const { return FieldsIn(Ask("/form?command=IPEXI&of=DIR%3D350").body); }
};

TEST_F(SecretsOnPages, AreShownByNone) {
  const std::string page = Ask("/form?command=IPEXI&of=DIR%3D350").body;
  EXPECT_FALSE(Says(page, "Tulip-4-you"));
  EXPECT_TRUE(Says(page, "type=\"password\""));
  const Answer changed = Post("/act", With(FieldsIn(page), "v.PASSW", "Zebra-9-secret"));
  EXPECT_TRUE(Says(changed.body, "edit IPEXI DIR=350:PASSW=***;"));
  EXPECT_FALSE(Says(changed.body, "Zebra-9-secret"));
  for (const char* address : {"/plan", "/lines", "/state?number=2", "/records?command=IPEXI", "/history"})
    EXPECT_FALSE(Says(Ask(address).body, "Zebra-9-secret")) << address;
  EXPECT_TRUE(Says(Ask("/plan.txt").body, "Zebra-9-secret"));
}

TEST_F(SecretsOnPages, StayWhereTheirFieldIsEmpty) {
  const Answer nothing = Post("/act", Form());
  EXPECT_EQ(nothing.status, Conflict);
  EXPECT_TRUE(Says(nothing.body, "Nothing is changed yet"));
}

TEST_F(SecretsOnPages, AreClearedByTheirBox) {
  Fields form = Form();
  form.Add("clear", "PASSW");
  const Answer checked = Post("/form", form, true);
  EXPECT_TRUE(Says(checked.body, "value=\"PASSW\" id=\"clear.PASSW\" checked"));
  const Answer tried = Post("/try", FieldsIn(checked.body));
  EXPECT_TRUE(Says(tried.body, "edit IPEXI DIR=350:PASSW=;"));
  EXPECT_TRUE(Says(Post("/act", FieldsIn(tried.body)).body, "Done, and kept"));
  EXPECT_FALSE(Says(Ask("/lines.txt").body, "Tulip-4-you"));
}

TEST_F(SecretsOnPages, AreLeftAloneWhereTheBoxIsUnmarkedAgain) {
  Fields form = Form();
  form.Add("clear", "PASSW");
  Fields checked = FieldsIn(Post("/form", form, true).body);
  checked = With(checked, "clear", "");
  EXPECT_EQ(FieldsIn(Post("/form", checked, true).body)["given"], "");
}

}  // namespace
}  // namespace cordboard::web
