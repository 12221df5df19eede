#include "web/Fields.h"

#include <gmock/gmock.h>

namespace cordboard::web {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

using Pairs = std::vector<std::pair<std::string, std::string>>;
Pairs PairsOf(const std::optional<Fields>& fields) { return fields ? Pairs(fields->begin(), fields->end()) : Pairs(); }

TEST(Fields, AreReadInTheirOrder) {
  const auto fields = Fields::Read("DIR=100&of=a%3Db&of=%C3%96+%2B&empty=&bare&&=x");
  ASSERT_TRUE(fields);
  EXPECT_THAT(PairsOf(fields), ElementsAre(Pair("DIR", "100"), Pair("of", "a=b"), Pair("of", "Ö +"), Pair("empty", ""),
                                           Pair("bare", ""), Pair("", ""), Pair("", "x")));
  EXPECT_THAT(fields->Each("of"), ElementsAre("a=b", "Ö +"));
  EXPECT_EQ((*fields)["of"], "a=b");
  EXPECT_EQ((*fields)["nothing"], "");
  EXPECT_TRUE(fields->Has("bare"));
  EXPECT_FALSE(fields->Has("nothing"));
  ASSERT_TRUE(Fields::Read(""));
  EXPECT_THAT(PairsOf(Fields::Read("")), IsEmpty());
}

TEST(Fields, AreNoneWhereTheyCannotBeRead) {
  for (const char* text : {"a=%", "a=%4", "a=%4x", "a=%xx", "a=%-1", "a=%+1", "%=a", "a=b&c=%0"})
    EXPECT_FALSE(Fields::Read(text)) << text;
}

TEST(Fields, AreSoManyAtTheMost) {
  std::string text;
  for (std::size_t i = 0; i < mostFields; ++i) text += "a=1&";
  ASSERT_TRUE(Fields::Read(text));
  EXPECT_EQ(Fields::Read(text)->size(), mostFields);
  EXPECT_FALSE(Fields::Read(text + "a=1"));
}

TEST(Fields, AreReadAgainAsTheyWereWritten) {
  std::string every;
  for (int byte = 0; byte < 256; ++byte) every += static_cast<char>(byte);
  const Fields fields = {{every, "1"}, {"name", every}, {"", ""}};
  EXPECT_THAT(PairsOf(Fields::Read(fields.Encoded())),
              ElementsAre(Pair(every, "1"), Pair("name", every), Pair("", "")));
  EXPECT_EQ((Fields{{"of", "A=1&b"}, {"x", "ö"}}).Encoded(), "of=A%3D1%26b&x=%C3%B6");
}

}  // namespace
}  // namespace cordboard::web
