#include "script/MessageCodes.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "support/SourceFolder.h"

namespace cordboard {
namespace {

// Every message that there is, in the order of the numbers.
const std::vector<int> numbers = {
    60000, 60001, 60003, 60004, 60005, 60006, 60007, 60008, 60010, 60011, 60012, 60013, 60015, 60016, 60017, 60020,
    60021, 60022, 60025, 60026, 60027, 60030, 60031, 60032, 60033, 60034, 60035, 60036, 60037, 60039, 60040, 60041,
    60042, 60043, 60044, 60045, 60046, 60047, 60048, 60049, 60050, 60051, 61005, 61007, 61008, 61009, 61010, 61011,
    61012, 61013, 61014, 61016, 61017, 61018, 61019, 61020, 61021, 61022, 61023, 61024, 61025, 61026, 61027, 61028,
    61029, 61030, 61031, 61032, 61033, 61034, 61035, 61036, 61037, 61038, 61040, 61041, 61042, 61043, 61044, 61045,
    61046, 61048, 61049, 61050, 61051, 61052, 61053, 62000, 62004, 62010, 62011, 62012, 62013};

struct Row {
  std::string name;
  int number;
};

// The codes as the header writes them: the language lets two names have one number.
std::vector<Row> Written() {
  std::ifstream header(SourceFile("script/MessageCodes.h"));
  const std::regex row(R"(^  (\w+) = (\d+), +// \S.*$)");
  std::vector<Row> rows;
  std::smatch match;
  for (std::string line; std::getline(header, line);) {
    if (std::regex_match(line, match, row)) rows.push_back({match[1], std::stoi(match[2])});
  }
  return rows;
}

TEST(MessageCodes, AreTheKnownNumbersInOrderEachOnce) {
  std::vector<int> written;
  for (const Row& row : Written()) written.push_back(row.number);
  EXPECT_EQ(written, numbers);
  EXPECT_EQ(std::set<int>(written.begin(), written.end()).size(), numbers.size());
}

TEST(MessageCodes, HaveNamesThatTheyDoNotShare) {
  std::set<std::string> names;
  for (const Row& row : Written()) EXPECT_TRUE(names.insert(row.name).second) << row.name;
}

TEST(MessageCodes, AreTheNumbersOfTheirNames) {
  EXPECT_EQ(static_cast<int>(Message::InsertRefused), 60000);
  EXPECT_EQ(static_cast<int>(Message::StatementFailed), 62000);
  EXPECT_EQ(static_cast<int>(Message::KeyNotFound), 62013);
}

}  // namespace
}  // namespace cordboard
