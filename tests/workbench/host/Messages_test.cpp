#include "workbench/host/Messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>

#include "support/SourceFolder.h"
#include "workbench/data/Resources.h"
#include "workbench/support/TemporaryFolder.h"

namespace cordboard::workbench {
namespace {

const nlohmann::json& Catalogue() {
  static const auto catalogue = nlohmann::json::parse(Resource("messages.json"));
  return catalogue;
}

// The codes that script/MessageCodes.h names, from its text.
std::set<std::string> Codes() {
  const std::string header = ReadFile(SourceFile("script/MessageCodes.h"));
  const std::regex line(R"(\w+ = (6\d{4}),)");
  std::set<std::string> codes;
  for (std::sregex_iterator found(header.begin(), header.end(), line), end; found != end; ++found)
    codes.insert((*found)[1]);
  return codes;
}

TEST(Messages, EveryCodeHasATextAndEveryTextACode) {
  const std::set<std::string> codes = Codes();
  EXPECT_GT(codes.size(), 80u);
  for (const std::string& code : codes) EXPECT_TRUE(Catalogue().contains(code)) << code;
  for (const auto& [code, texts] : Catalogue().items()) {
    EXPECT_TRUE(codes.contains(code)) << code;
    EXPECT_FALSE(texts.empty()) << code;
  }
}

TEST(Messages, NoTextHasAPlaceHolderBeyondItsArguments) {
  const std::regex place(R"(\{(\d+)\})");
  for (const auto& [code, texts] : Catalogue().items()) {
    for (const auto& [arguments, entry] : texts.items()) {
      const std::string text = entry;
      for (std::sregex_iterator found(text.begin(), text.end(), place), end; found != end; ++found) {
        EXPECT_GE(std::stoi((*found)[1]), 1) << code << ": " << text;
        EXPECT_LE(std::stoi((*found)[1]), std::stoi(arguments)) << code << ": " << text;
      }
    }
  }
}

TEST(Messages, EveryTextIsOneOrMoreSentencesWithAllItsPlacesFilled) {
  for (const auto& [code, texts] : Catalogue().items()) {
    for (const auto& [count, entry] : texts.items()) {
      const std::vector<Value> arguments(std::stoul(count), "DIR");
      const std::string text = MessageText(std::stoi(code), arguments);
      EXPECT_THAT(text, testing::EndsWith(".")) << code;
      EXPECT_THAT(text, testing::Not(testing::ContainsRegex("[{}]"))) << code;
    }
  }
}

// Which table, parameter or value it is about is told, but for arguments that tell nothing more.
TEST(Messages, EveryTextTellsAllItsArguments) {
  const std::map<std::string, std::set<int>> silent = {{"60000 2", {2}}, {"60004 3", {1}}, {"60017 4", {2, 3}}};
  for (const auto& [code, texts] : Catalogue().items()) {
    for (const auto& [count, entry] : texts.items()) {
      std::set<int> untold;
      for (int number = 1; number <= std::stoi(count); ++number) {
        if (std::string(entry).find("{" + std::to_string(number) + "}") == std::string::npos) untold.insert(number);
      }
      const auto listed = silent.find(code + " " + count);
      EXPECT_EQ(untold, listed == silent.end() ? std::set<int>() : listed->second) << code << " " << count;
    }
  }
}

// A text says what is wrong, and then what to do.
TEST(Messages, EveryTextSaysWhatToDo) {
  const std::regex twoSentences(R"([A-Z{].*[^.]\. [A-Z].*\.)");
  for (const auto& [code, texts] : Catalogue().items()) {
    for (const auto& [count, entry] : texts.items())
      EXPECT_TRUE(std::regex_match(std::string(entry), twoSentences)) << code << ": " << entry;
  }
}

TEST(Messages, ArgumentsFillTheirPlaces) {
  EXPECT_EQ(MessageText(60026, {"3", "EC"}), "The number is too long. Type EC takes at most 3 digits.");
  EXPECT_EQ(MessageText("60026", {3, "EC"}), "The number is too long. Type EC takes at most 3 digits.");
}

TEST(Messages, EmptyAndNullFillTheirPlacesWithNothing) {
  EXPECT_EQ(MessageText(60026, {Value(), Value::Null()}), "The number is too long. Type  takes at most  digits.");
}

TEST(Messages, AnArgumentThatLooksLikeAPlaceHolderStaysAsItIs) {
  EXPECT_EQ(MessageText(60026, {"{2}", "{1}"}), "The number is too long. Type {1} takes at most {2} digits.");
}

TEST(Messages, AnUnknownCodeStillGivesASentence) {
  EXPECT_EQ(MessageText(69999, {}), "Message 69999 was reported.");
  EXPECT_EQ(MessageText(69999, {"DIR", 5}), "Message 69999 was reported: DIR, 5.");
  EXPECT_EQ(MessageText(Value(), {}), "Message  was reported.");
}

TEST(Messages, ACodeWithAnotherNumberOfArgumentsStillGivesASentence) {
  EXPECT_EQ(MessageText(60026, {}), "Message 60026 was reported.");
  EXPECT_EQ(MessageText(60026, {"3"}), "Message 60026 was reported: 3.");
  EXPECT_EQ(MessageText(60026, {"3", "EC", "x"}), "Message 60026 was reported: 3, EC, x.");
}

}  // namespace
}  // namespace cordboard::workbench
