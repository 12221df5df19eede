// What the peer may do while the library waits: Runs inside Runs, and answers in any order.
#include "remote/Channel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "remote/Conversation.h"
#include "remote/Serve.h"
#include "script/HostOperations.h"

namespace cordboard::remote {
namespace {

using testing::ElementsAre;

const std::string added = Result(R"("add")", "null");
const std::string yes = R"({"return":true})";
const std::string no = R"({"return":false})";

// A Run of the probe asks once, and gives the peer's answer.
void AskOnce() {
  probe = [] { return scResetParam("EQU"); };
}

std::string Asked(int number) { return Call("h" + std::to_string(number), "scResetParam", R"(["EQU"])"); }

TEST(Nested, RunIsServedBeforeTheOuterOneGoesOn) {
  AskOnce();
  EXPECT_THAT(Converse({addObject, RunProbe("1"), RunProbe("2"), AnswerTo("h2", no), AnswerTo("h1", yes)}).lines,
              ElementsAre(added, Asked(1), Asked(2), Result("2", "false"), Result("1", "true")));
}

TEST(Nested, RunsFollowEachOtherInsideOneWait) {
  AskOnce();
  EXPECT_THAT(Converse({addObject, RunProbe("1"), RunProbe("2"), AnswerTo("h2", no), RunProbe("3"), AnswerTo("h3", yes),
                        AnswerTo("h1", no)})
                  .lines,
              ElementsAre(added, Asked(1), Asked(2), Result("2", "false"), Asked(3), Result("3", "true"),
                          Result("1", "false")));
}

TEST(Nested, AnswerToTheOuterRunIsKeptUntilItWaits) {
  AskOnce();
  EXPECT_THAT(
      Converse({addObject, RunProbe("1"), RunProbe("2"), RunProbe("3"), AnswerTo("h1", yes), AnswerTo("h2", no),
                AnswerTo("h3", yes)})
          .lines,
      ElementsAre(added, Asked(1), Asked(2), Asked(3), Result("3", "true"), Result("2", "false"), Result("1", "true")));
}

TEST(Nested, FailureEndsTheInnerRunAlone) {
  AskOnce();
  EXPECT_THAT(Converse({addObject, RunProbe("1"), RunProbe("2"), R"({"id":"h2","error":{"message":"closed"}})",
                        AnswerTo("h1", yes)})
                  .lines,
              ElementsAre(added, Asked(1), Asked(2), Failure("2", -32000, "scResetParam: closed", "HostFailure"),
                          Result("1", "true")));
}

TEST(Nested, ErrorsAreAnsweredWhileTheLibraryWaits) {
  AskOnce();
  const auto lines = Converse({addObject, RunProbe("1"), "{", "[]", R"({"jsonrpc":"2.0","id":2,"method":"Stop"})",
                               RunProbe("3", "7"), AnswerTo("h1", yes)})
                         .lines;
  ASSERT_EQ(lines.size(), 7u);
  EXPECT_THAT(lines[2], testing::HasSubstr("-32700"));
  EXPECT_THAT(lines[3], testing::HasSubstr("-32600"));
  EXPECT_THAT(lines[4], testing::HasSubstr("-32601"));
  EXPECT_THAT(lines[5], testing::HasSubstr("-32602"));
  EXPECT_EQ(lines[6], Result("1", "true"));
}

TEST(Nested, RunsReachTheDocumentedDepthAndNoFurther) {
  AskOnce();
  std::vector<std::string> input{addObject};
  std::vector<std::string> expected{added};
  for (int depth = 1; depth <= MaximumRunDepth; ++depth) {
    input.push_back(RunProbe(std::to_string(depth)));
    expected.push_back(Asked(depth));
  }
  input.push_back(RunProbe(R"("one more")"));
  expected.push_back(Failure(R"("one more")", -32001, "too many Runs inside each other"));
  for (int depth = MaximumRunDepth; depth >= 1; --depth) {
    input.push_back(AnswerTo("h" + std::to_string(depth), depth % 2 == 0 ? yes : no));
    expected.push_back(Result(std::to_string(depth), depth % 2 == 0 ? "true" : "false"));
  }
  // The room is free again.
  input.push_back(RunProbe(R"("after")"));
  expected.push_back(Asked(MaximumRunDepth + 1));
  EXPECT_EQ(Converse(input).lines, expected);
}

TEST(Nested, RunsReachAtLeast32) { EXPECT_GE(MaximumRunDepth, 32); }

// --- Ids.

TEST(Answer, ToNothingThatWasAskedIsIgnored) {
  AskOnce();
  const Conversation said = Converse({addObject, AnswerTo("h1", yes), RunProbe("1"), AnswerTo("h2", no),
                                      AnswerTo("H1", no), R"({"id":1,"result":{"return":false}})",
                                      R"({"id":null,"error":{"message":"not JSON"}})", R"({"result":{"return":false}})",
                                      R"({"id":["h1"],"result":{}})", AnswerTo("h1", yes), AnswerTo("h1", no)});
  EXPECT_THAT(said.lines, ElementsAre(added, Asked(1), Result("1", "true")));
  EXPECT_EQ(std::count(said.diagnostics.begin(), said.diagnostics.end(), '\n'), 8);
  EXPECT_THAT(said.diagnostics, testing::StartsWith("ignored an answer to nothing that was asked, id \"h1\"\n"));
}

TEST(Answer, GivenTwiceCountsOnce) {
  AskOnce();
  EXPECT_THAT(
      Converse({addObject, RunProbe("1"), RunProbe("2"), AnswerTo("h1", yes), AnswerTo("h1", no), AnswerTo("h2", no)})
          .lines,
      ElementsAre(added, Asked(1), Asked(2), Result("2", "false"), Result("1", "true")));
}

TEST(Answer, IsNeverARequestOfThePeerWithTheSameId) {
  AskOnce();
  EXPECT_THAT(Converse({addObject, RunProbe(R"("h1")"), RunProbe(R"("h2")"), RunProbe(R"("h2")"), AnswerTo("h3", yes),
                        AnswerTo("h2", no), AnswerTo("h1", yes)})
                  .lines,
              ElementsAre(added, Asked(1), Asked(2), Asked(3), Result(R"("h2")", "true"), Result(R"("h2")", "false"),
                          Result(R"("h1")", "true")));
}

}  // namespace
}  // namespace cordboard::remote
