// Whatever comes in, the library answers in whole lines of JSON or not at all, and ends with status 0.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "remote/Channel.h"
#include "remote/Conversation.h"
#include "remote/Json.h"
#include "script/HostOperations.h"
#include "script/MessageBox.h"

namespace cordboard::remote {
namespace {

// A conversation with everything in it: Runs inside Runs, rows, a message box, failures and lines that are refused.
std::string WholeConversation() {
  probe = [] {
    RowSet rows;
    const bool found = scRunQuery("SELECT a, b", rows);
    ShowMessageBox("text", "title", InformationBox);
    return found && rows[1][0] == Value(5);
  };
  std::string bytes;
  for (const std::string& line :
       {addObject, RunNANSI("2", "GenerateCmd", R"(["12"])"),
        AnswerTo("h1", R"({"return":true,"out":[["100"],["199"],["EX"]]})"), RunProbe("\"in\xc3\xa5side\""),
        AnswerTo("h2", R"({"return":true})"), AnswerTo("h3", R"({"return":true,"out":[["\u00e5"],[5.0]]})"),
        RunNANSI("null", "StatCheck", R"(["NUMTYP",{"empty":true},1e2,null,true])"), AnswerTo("h4", "null"),
        AnswerTo("h5", R"({"return":"true"})"), AnswerTo("h6", "{}"), AnswerTo("h7", "{}"), std::string("{"),
        RunProbe("3"), AnswerTo("h8", R"({"return":true,"out":[["1"],[]]})"), RunProbe("4"),
        std::string(R"({"jsonrpc":"2.0","id":"h9","error":{"code":1,"message":"closed"}})"), destroy})
    bytes += line + "\n";
  return bytes;
}

// An empty text where the output and the status are as they should be.
std::string Fault(const Conversation& said) {
  if (said.status != 0) return "status " + std::to_string(said.status);
  if (!said.out.empty() && said.out.back() != '\n') return "the last line has no end";
  for (const std::string& line : said.lines) {
    const Json message = Json::parse(line, nullptr, false);
    if (!message.is_object() || message.value("jsonrpc", "") != "2.0" || !message.contains("id"))
      return "no message: " + line;
    if (message.contains("method") + message.contains("result") + message.contains("error") != 1)
      return "no request and no answer: " + line;
  }
  return "";
}

TEST(Hostile, WholeConversationRunsToItsEnd) {
  const Conversation said = ConverseBytes(WholeConversation());
  EXPECT_EQ(Fault(said), "");
  EXPECT_EQ(said.lines.back(), Result(R"("destroy")", "null"));
  EXPECT_EQ(said.diagnostics, "");
  EXPECT_EQ(said.lines.size(), 17u) << said.out;
}

TEST(Hostile, EndOfInputAnywhereEndsWithStatusZero) {
  const std::string whole = WholeConversation();
  const std::string everything = ConverseBytes(whole).out;
  std::string complete;  // what was said up to the line that is cut
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const Conversation said = ConverseBytes(whole.substr(0, length));
    ASSERT_EQ(Fault(said), "") << "cut at " << length;
    ASSERT_TRUE(said.out.starts_with(complete)) << "cut at " << length;
    if (length > 0 && whole[length - 1] == '\n') {
      complete = said.out;
      ASSERT_TRUE(everything.starts_with(complete)) << "cut at " << length;
    }
  }
}

TEST(Hostile, ChangedBytesNeverBreakTheOutput) {
  const std::string whole = WholeConversation();
  std::mt19937 random(20);
  const std::string pieces[] = {"\n",
                                "{",
                                "[",
                                "]",
                                "\"",
                                "null",
                                "1e400",
                                "-",
                                "\xff",
                                std::string(1, '\0'),
                                "\\u",
                                "{\"empty\":true}",
                                "{\"out\":true}",
                                "99999999999999999999",
                                "true",
                                ",",
                                ":"};
  for (int round = 0; round < 1500; ++round) {
    std::string bytes = whole;
    for (std::size_t changes = 1 + random() % 4; changes > 0; --changes) {
      const std::size_t at = random() % bytes.size();
      switch (random() % 4) {
        case 0: bytes[at] = static_cast<char>(random()); break;
        case 1: bytes.erase(at, random() % 40); break;
        case 2: bytes.insert(at, pieces[random() % std::size(pieces)]); break;
        default: bytes.insert(at, bytes.substr(random() % bytes.size(), random() % 200)); break;
      }
    }
    ASSERT_EQ(Fault(ConverseBytes(bytes)), "") << bytes;
  }
}

TEST(Hostile, ZeroBytesAreRefused) {
  const std::string said = ConverseBytes(addObject + std::string("\0 rest\n", 7) + addObject + "\n").out;
  EXPECT_EQ(said, Failure("null", -32700, "a zero byte is in the line") + "\n" + Result(R"("add")", "null") + "\n");
}

TEST(Hostile, DeepNestingIsRefused) {
  const std::string deep = R"({"jsonrpc":"2.0","id":1,"method":"AddObject","params":)" + std::string(500000, '[');
  for (const std::string& line : {deep, deep + std::string(500000, ']') + "}"})
    EXPECT_EQ(ConverseBytes(line + "\n").out, Failure("null", -32700, "the line is nested too deeply") + "\n");
}

TEST(Hostile, ObjectsOfVeryManyMembersAreReadInGoodTime) {
  std::string line = R"({"jsonrpc":"2.0","id":1,"method":"Run","params":{"a":0)";
  for (int i = 0; i < 200000; ++i) line += ",\"" + std::to_string(i) + "\":0";
  EXPECT_EQ(ConverseBytes(line + "}}\n").out, Failure("1", -32602, "Run has no Definition") + "\n");
}

TEST(Hostile, LinesBeyondTheLimitAreRefusedUnreadAndPassedOver) {
  const auto said = [](std::size_t length) { return ConverseBytes(std::string(length, 'x') + "\n" + addObject).out; };
  const std::string added = Result(R"("add")", "null") + "\n";
  EXPECT_EQ(said(MaximumLine), Failure("null", -32700, "the line is not JSON, at byte 1") + "\n" + added);
  EXPECT_EQ(said(MaximumLine + 1), Failure("null", -32700, "the line is longer than 64 MiB") + "\n" + added);
}

TEST(Hostile, LongTextsGoThroughWhole) {
  const std::string text(3000000, 'x');
  probe = [&text] { return scGetParamValue("DIR") == Value(text); };
  const Conversation said = Converse({addObject, RunProbe("1"), AnswerTo("h1", R"({"return":")" + text + "\"}")});
  EXPECT_EQ(said.lines.back(), Result("1", "true"));
}

}  // namespace
}  // namespace cordboard::remote
