#include "SiteTest.h"
#include "workbench/actions/Records.h"
#include "workbench/history/History.h"

namespace cordboard::web {
namespace {

class FormTest : public SiteTest {
 protected:
  static void SetUpTestSuite() {
    made_ = std::make_unique<TestFolder>();
    MakeExchange(made_->path() / "office.cbx",
                 "NANSI:NUMTYP=EX,NUMSE=100&&119;\n"
                 "EXCCS:CAT=1,TRAF=11,SERV_D6=1;\n"
                 "KSEXI:DIR=100&101,ITYPE=12,EQU=next,CAT=1;\n");
  }
  static void TearDownTestSuite() { made_.reset(); }

  void SetUp() override {
    std::filesystem::copy(made_->path() / "office.cbx", file_);
    Open(file_);
  }

  Fields Opened(const Fields& query) const { return FieldsIn(Get("/form", query).body); }
  Fields Adding(const std::string& command) const { return Opened({{"command", command}}); }
  // The form after a field was left.
  Fields Left(const Fields& form, const std::string& name, const std::string& value) const {
    const Answer answer = Post("/form", With(form, "v." + name, value), true);
    EXPECT_EQ(answer.status, Ok);
    return FieldsIn(answer.body);
  }
  std::size_t Records(const std::string& command) const {
    return CountRecords(*workbench::Exchange::OpenForReading(file_), *workbench::FindForm(command)).records;
  }
  int States() const {
    return workbench::History(workbench::Exchange::OpenForReading(file_)->Dynamic()).states().back().number;
  }

  static inline std::unique_ptr<TestFolder> made_;
  const TestFolder folder_;
  const std::filesystem::path file_ = folder_.path() / "office.cbx";
};

TEST_F(FormTest, a_form_has_a_field_for_each_parameter_of_the_release) {
  const std::string page = Get("/form", {{"command", "KSEXI"}}).body;
  EXPECT_TRUE(Says(page, "id=\"v.DIR\""));
  EXPECT_TRUE(Says(page, "aria-required=\"true\""));
  EXPECT_TRUE(Says(page, "id=\"v.ADC_D11\""));
  EXPECT_TRUE(Says(page, "<legend>SERV</legend>"));
}

TEST_F(FormTest, every_command_has_its_form) {
  for (const workbench::FormDefinition* form : workbench::Forms()) {
    const Answer answer = Get("/form", {{"command", form->command}});
    EXPECT_EQ(answer.status, form->adds ? Ok : NotFound) << form->command;
    if (!form->adds) continue;
    EXPECT_TRUE(Says(answer.body, "<h1>" + form->command + (form->single ? ": set</h1>" : ": add</h1>")));
    const Answer tried = Post("/try", FieldsIn(answer.body));
    EXPECT_TRUE(tried.status == Ok || tried.status == Conflict) << form->command << ": " << tried.body;
  }
}

TEST_F(FormTest, a_field_that_is_left_is_checked_and_the_others_follow) {
  Fields form = Left(Adding("KSEXI"), "DIR", "102");
  EXPECT_EQ(form["given"], "DIR");
  form = Left(form, "SERV_D6", "1");
  EXPECT_EQ(form["given"], "DIR,SERV_D6");
  EXPECT_EQ(form["v.SERV"], "000001000");
  const Answer wrong = Post("/form", With(form, "v.ITYPE", "99"), true);
  EXPECT_TRUE(Says(wrong.body, "<p class=\"error\">this value is not possible here"));
  EXPECT_TRUE(Says(wrong.body, "aria-invalid=\"true\""));
  EXPECT_FALSE(Says(wrong.body, "<html"));
  EXPECT_EQ(ValueOf(wrong.body, "v.ITYPE"), "99");
}

TEST_F(FormTest, a_number_that_is_in_use_is_refused_with_who_has_it) {
  const Answer answer = Post("/form", With(Adding("KSEXI"), "v.DIR", "100"), true);
  EXPECT_TRUE(Says(answer.body, "there is already the key extension DIR=100 (KSEXI)"));
}

TEST_F(FormTest, a_whole_gives_its_digits_and_a_digit_changes_its_whole) {
  Fields form = Left(Adding("KSEXI"), "SERV", "000001000");
  EXPECT_EQ(form["v.SERV_D6"], "1");
  form = Left(form, "SERV_D6", "0");
  EXPECT_EQ(form["v.SERV"], "000000000");
}

// Who types the whole means it as it is, whatever digit he has tried before.
TEST_F(FormTest, a_whole_that_is_typed_takes_the_place_of_its_digits) {
  const Fields form = Left(Left(Adding("EXCCS"), "SERV_D6", "0"), "SERV", "111111111");
  EXPECT_EQ(form["v.SERV"], "111111111");
  EXPECT_EQ(form["given"], "SERV");
  const Fields again = Left(Left(form, "SERV_D6", "0"), "SERV", "111111111");
  EXPECT_EQ(again["v.SERV"], "111111111");
  EXPECT_EQ(again["given"], "SERV");
  EXPECT_EQ(Left(again, "SERV", "")["given"], "");
}

TEST_F(FormTest, next_stays_what_is_typed_and_tells_what_it_takes) {
  const Fields form = Left(Left(Adding("KSEXI"), "DIR", "next:2"), "ITYPE", "12");
  const Answer answer = Post("/form", With(form, "v.EQU", "next"), true);
  EXPECT_EQ(ValueOf(answer.body, "v.DIR"), "next:2");
  EXPECT_TRUE(Says(answer.body, "next: DIR=102&amp;&amp;103"));
}

TEST_F(FormTest, what_is_emptied_is_given_no_more) {
  const Fields form = Left(Left(Adding("KSEXI"), "DIR", "102"), "DIR", "");
  EXPECT_EQ(form["given"], "");
  EXPECT_EQ(form["v.DIR"], "");
}

TEST_F(FormTest, values_are_offered_as_the_form_is_filled_in) {
  Fields form = Left(Adding("KSEXI"), "ITYPE", "12");
  form.Add("parameter", "DIR");
  const std::string all = Post("/values", form, true).body;
  EXPECT_TRUE(Says(all, "data-value=\"102\""));
  EXPECT_FALSE(Says(all, "data-value=\"100\""));
  form.Add("q", "11");
  const std::string some = Post("/values", form, true).body;
  EXPECT_LT(some.find("data-value=\"110\""), some.find("data-value=\"111\""));
  EXPECT_FALSE(Says(some, "data-value=\"102\""));
  EXPECT_TRUE(Says(Post("/values", With(form, "q", "nothing like it"), true).body, "No value has this in it."));
}

TEST_F(FormTest, values_are_found_by_their_description) {
  const Fields form = With(With(Adding("KSEXI"), "parameter", "SERV_D6"), "q", "");
  const std::string all = Post("/values", form, true).body;
  EXPECT_TRUE(Says(all, "data-value=\"1\""));
  const Answer page = Post("/values", form);
  EXPECT_TRUE(Says(page.body, "Back to the form"));
  EXPECT_EQ(Post("/values", With(form, "parameter", "NONE")).status, NotFound);
}

TEST_F(FormTest, an_action_is_shown_before_it_is_done) {
  const Fields form = Left(Left(Left(Left(Adding("KSEXI"), "DIR", "102"), "ITYPE", "12"), "EQU", "next"), "CAT", "1");
  const Answer tried = Post("/try", form);
  EXPECT_EQ(tried.status, Ok);
  EXPECT_TRUE(Says(tried.body, "Nothing is done yet."));
  EXPECT_TRUE(Says(tried.body, "<pre class=\"lines\">KSEXI:DIR=102,ITYPE=12,EQU=next,CAT=1;<br></pre>"));
  EXPECT_TRUE(Says(tried.body, "next: EQU=001-0-1"));
  EXPECT_EQ(Records("KSEXI"), 2);
  const Fields shown = FieldsIn(tried.body);
  const Answer done = Post("/act", shown);
  EXPECT_TRUE(Says(done.body, "Done, and kept as state 2."));
  EXPECT_EQ(Records("KSEXI"), 3);
  // To send it once more does nothing.
  EXPECT_EQ(Post("/act", shown).status, Conflict);
  EXPECT_EQ(Records("KSEXI"), 3);
}

TEST_F(FormTest, a_refused_action_tells_each_problem_at_its_field_and_keeps_what_was_typed) {
  const Fields form = Left(Left(Adding("KSEXI"), "DIR", "102"), "ITYPE", "12");
  for (const char* address : {"/try", "/act"}) {
    const Answer refused = Post(address, form);
    EXPECT_EQ(refused.status, Conflict);
    EXPECT_TRUE(Says(refused.body, "The exchange refuses this"));
    EXPECT_TRUE(Says(refused.body, "<a href=\"#v.EQU\">EQU</a>"));
    EXPECT_EQ(ValueOf(refused.body, "v.DIR"), "102");
    EXPECT_EQ(ValueOf(refused.body, "given"), "DIR,ITYPE");
  }
  EXPECT_EQ(States(), 1);
}

TEST_F(FormTest, a_record_is_changed_in_what_was_changed_alone) {
  const Fields form = Opened({{"command", "KSEXI"}, {"of", "DIR=100"}});
  EXPECT_EQ(form["v.CAT"], "1");
  EXPECT_EQ(form["given"], "");
  const Answer done = Post("/act", With(form, "v.CUST", "1"));
  EXPECT_TRUE(Says(done.body, "edit KSEXI DIR=100:CUST=1;"));
  EXPECT_TRUE(Says(done.body, "<span class=\"changed\">changed</span>"));
  EXPECT_EQ(Opened({{"command", "KSEXI"}, {"of", "DIR=100"}})["v.CUST"], "1");
}

TEST_F(FormTest, a_value_of_a_record_is_cleared_by_emptying_its_field) {
  Post("/act", With(Opened({{"command", "KSEXI"}, {"of", "DIR=100"}}), "v.CUST", "1"));
  const Answer done = Post("/act", With(Opened({{"command", "KSEXI"}, {"of", "DIR=100"}}), "v.CUST", ""));
  EXPECT_TRUE(Says(done.body, "edit KSEXI DIR=100:CUST=;"));
  EXPECT_EQ(Opened({{"command", "KSEXI"}, {"of", "DIR=100"}})["v.CUST"], "");
}

TEST_F(FormTest, an_edit_that_changes_nothing_is_refused) {
  const Answer refused = Post("/act", Opened({{"command", "KSEXI"}, {"of", "DIR=100"}}));
  EXPECT_EQ(refused.status, Conflict);
  EXPECT_TRUE(Says(refused.body, "Nothing is changed yet"));
}

TEST_F(FormTest, a_record_that_there_is_not_has_no_form) {
  EXPECT_EQ(Get("/form", {{"command", "KSEXI"}, {"of", "DIR=555"}}).status, NotFound);
  EXPECT_EQ(Get("/form", {{"command", "KSEXI"}, {"of", "DIR"}}).status, BadRequest);
  EXPECT_EQ(Get("/form", {{"command", "KSEXY"}}).status, NotFound);
  EXPECT_TRUE(Says(Get("/form", {{"command", "KSEXY"}}).body, "KSEXI"));
}

TEST_F(FormTest, a_stale_form_is_refused_with_what_has_changed) {
  const Fields one = With(Opened({{"command", "KSEXI"}, {"of", "DIR=100"}}), "v.CUST", "1");
  const Fields other = With(Opened({{"command", "KSEXI"}, {"of", "DIR=100"}}), "v.LANG", "1");
  EXPECT_EQ(Post("/act", one).status, Ok);
  const Answer refused = Post("/act", other);
  EXPECT_EQ(refused.status, Conflict);
  EXPECT_TRUE(Says(refused.body, "so nothing was done"));
  EXPECT_TRUE(Says(refused.body, "<ins>1</ins>"));
  // The form that comes with it shows both, and can be sent.
  const Fields again = FieldsIn(refused.body);
  EXPECT_EQ(again["v.CUST"], "1");
  EXPECT_EQ(again["v.LANG"], "1");
  EXPECT_EQ(Post("/act", again).status, Ok);
}

TEST_F(FormTest, a_change_of_another_program_makes_a_form_stale_too) {
  const Fields form = With(Opened({{"command", "KSEXI"}, {"of", "DIR=100"}}), "v.CUST", "1");
  Apply(file_, "edit KSEXI DIR=100:LANG=1;\n");
  EXPECT_TRUE(Says(Post("/form", form, true).body, "The exchange has changed since this form was opened."));
  const Answer refused = Post("/act", form);
  EXPECT_EQ(refused.status, Conflict);
  EXPECT_TRUE(Says(refused.body, "State 2, apply by"));
}

TEST_F(FormTest, a_deletion_tells_who_names_the_record_and_what_goes) {
  Apply(file_, "KSANI:DIR=100,KEY=next,ADN=102,CAT=1;\n");
  const Answer confirm = Get("/delete", {{"command", "KSEXI"}, {"of", "DIR=101"}});
  EXPECT_EQ(confirm.status, Ok);
  EXPECT_TRUE(Says(confirm.body, "<span class=\"removed\">removed</span>"));
  EXPECT_EQ(Records("KSEXI"), 2);
  const Answer done = Post("/delete", FieldsIn(confirm.body));
  EXPECT_TRUE(Says(done.body, "Done, and kept as state 3."));
  EXPECT_EQ(Records("KSEXI"), 1);
  EXPECT_TRUE(Says(Post("/delete", FieldsIn(confirm.body)).body, "there is no record of KSEXI with DIR=101"));
  EXPECT_TRUE(Says(Get("/delete", {{"command", "KSEXI"}, {"of", "DIR=100"}}).body, "Named by other records"));
}

TEST_F(FormTest, a_stale_deletion_asks_once_more) {
  const Fields form = FieldsIn(Get("/delete", {{"command", "KSEXI"}, {"of", "DIR=101"}}).body);
  Apply(file_, "edit KSEXI DIR=100:LANG=1;\n");
  const Answer refused = Post("/delete", form);
  EXPECT_EQ(refused.status, Conflict);
  EXPECT_TRUE(Says(refused.body, "so nothing was done"));
  EXPECT_EQ(Post("/delete", FieldsIn(refused.body)).status, Ok);
  EXPECT_EQ(Records("KSEXI"), 1);
}

// The identifier of a record is another one in another exchange: lines have its key.
TEST_F(FormTest, a_record_that_is_found_by_its_identifier_is_told_by_its_key) {
  const auto exchange = workbench::Exchange::OpenForReading(file_);
  const auto found = FindRecord(*exchange, *workbench::FindForm("KSEXI"), {{"DIR", "101"}});
  const std::string identifier = "CMDID=" + std::to_string(std::get<workbench::StoredRecord>(found).CmdId);
  const Fields form = Opened({{"command", "KSEXI"}, {"of", identifier}});
  EXPECT_TRUE(Says(Post("/act", With(form, "v.CUST", "1")).body, "edit KSEXI DIR=101:CUST=1;"));
  EXPECT_TRUE(Says(Get("/delete", {{"command", "KSEXI"}, {"of", identifier}}).body, "delete KSEXI DIR=101;"));
}

TEST_F(FormTest, a_held_file_leaves_the_form_as_it_is) {
  const Fields form = With(Opened({{"command", "KSEXI"}, {"of", "DIR=100"}}), "v.CUST", "1");
  const auto holder = workbench::Exchange::OpenForWriting(file_);
  holder->Start();
  const Answer refused = Post("/act", form);
  EXPECT_EQ(refused.status, Busy);
  EXPECT_TRUE(Says(refused.body, "is held by"));
  EXPECT_EQ(ValueOf(refused.body, "v.CUST"), "1");
  const Fields deletion = FieldsIn(Get("/delete", {{"command", "KSEXI"}, {"of", "DIR=101"}}).body);
  const Answer kept = Post("/delete", deletion);
  EXPECT_EQ(kept.status, Busy);
  EXPECT_TRUE(Says(kept.body, "is held by"));
  holder->RollBack();
  EXPECT_EQ(Post("/delete", FieldsIn(kept.body)).status, Ok);
  EXPECT_EQ(
      Post("/act", With(FieldsIn(refused.body), "mark", FieldsIn(Get("/form", {{"command", "NANSI"}}).body)["mark"]))
          .status,
      Ok);
}

TEST_F(FormTest, a_site_that_only_reads_shows_and_changes_nothing) {
  Open(file_, true);
  const Answer page = Get("/form", {{"command", "KSEXI"}, {"of", "DIR=100"}});
  EXPECT_EQ(page.status, Ok);
  EXPECT_FALSE(Says(page.body, "/act"));
  const Fields form = With(FieldsIn(page.body), "v.CUST", "1");
  EXPECT_EQ(Post("/act", form).status, Forbidden);
  EXPECT_EQ(Post("/delete", {{"command", "KSEXI"}, {"of", "DIR=100"}}).status, Forbidden);
  const Answer tried = Post("/try", form);
  EXPECT_EQ(tried.status, Ok);
  EXPECT_FALSE(Says(tried.body, "Do it"));
  EXPECT_EQ(States(), 1);
}

TEST_F(FormTest, hostile_values_are_text_in_every_field) {
  const std::string hostile = "<script>alert(1)</script>\"'&";
  Fields form = Adding("KSEXI");
  for (const auto& parameter : workbench::FindForm("KSEXI")->parameters)
    form = With(form, "v." + parameter.name, hostile);
  const Answer answer = Post("/form", form, true);
  EXPECT_FALSE(Says(answer.body, "<script"));
  const Fields shown = FieldsIn(answer.body);
  for (const auto& parameter : workbench::FindForm("KSEXI")->parameters)
    EXPECT_EQ(shown["v." + parameter.name], hostile) << parameter.name;
}

TEST_F(FormTest, a_value_is_one_line) {
  const Fields form = Adding("KSEXI");
  EXPECT_EQ(Post("/act", With(form, "v.DIR", "102;\nNANSI:NUMTYP=EX,NUMSE=500;")).status, BadRequest);
  EXPECT_EQ(Post("/act", With(form, "v.DIR", "102\xFF")).status, BadRequest);
  EXPECT_EQ(ValueOf(Post("/form", With(form, "v.DIR", "102\t103"), true).body, "v.DIR"), "102 103");
  EXPECT_EQ(Post("/act", With(form, "from", "a\nb")).status, BadRequest);
  EXPECT_EQ(Post("/act", With(form, "mark", "a\nb")).status, BadRequest);
  EXPECT_EQ(Post("/act", With(form, "of", "DIR=1\n00")).status, BadRequest);
  EXPECT_EQ(Post("/act", With(form, "shown", "%")).status, BadRequest);
  EXPECT_EQ(Post("/act", With(form, "v.NONE", "1")).status, BadRequest);
  EXPECT_EQ(Post("/delete", {{"command", "KSEXI"}, {"of", "DIR=100"}, {"mark", "a\nb"}}).status, BadRequest);
  EXPECT_EQ(States(), 1);
}

TEST_F(FormTest, a_record_is_made_from_a_template) {
  Apply(file_, "KSEXITEMPLATE:TEMPLATENAME=Office,CAT=1,LANG=2;\n");
  Fields form = Adding("KSEXI");
  form = With(Left(With(form, "from", "Office"), "DIR", "102"), "from", "Office");
  EXPECT_EQ(form["v.LANG"], "2");
  form = With(Left(form, "ITYPE", "12"), "from", "Office");
  const Answer done = Post("/act", With(form, "v.EQU", "next"));
  EXPECT_TRUE(Says(done.body, "KSEXI from Office:DIR=102,ITYPE=12,EQU=next;"));
}

TEST_F(FormTest, the_record_of_the_whole_exchange_is_changed_where_it_stands) {
  Apply(file_, "SYDAS:NTC=1;\n");
  const Answer page = Get("/form", {{"command", "SYDAS"}});
  EXPECT_TRUE(Says(page.body, "<h1>SYDAS: change</h1>"));
  EXPECT_EQ(ValueOf(page.body, "v.NTC"), "1");
  EXPECT_TRUE(Says(Post("/act", With(FieldsIn(page.body), "v.NTC", "2")).body, "edit SYDAS:NTC=2;"));
}

TEST_F(FormTest, a_page_that_is_gone_says_so) { EXPECT_EQ(Get("/kept", {{"page", "1"}}).status, NotFound); }

}  // namespace
}  // namespace cordboard::web
