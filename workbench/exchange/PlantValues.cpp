#include "workbench/exchange/PlantValues.h"

#include <algorithm>
#include <utility>

#include "script/Text.h"
#include "workbench/data/DataFile.h"
#include "workbench/exchange/Plant.h"
#include "workbench/text/Elements.h"
#include "workbench/text/Separated.h"

namespace cordboard::workbench {

namespace {

void CheckPlain(const DataItem& item, std::string_view text, std::size_t most) {
  const std::size_t length = Length(text);
  if (length > most)
    item.Fail("a text of at most " + std::to_string(most) + " characters is wanted, not of " + std::to_string(length));
  if (std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x20; }))
    item.Fail("a text must not hold control characters");
}

void CheckValue(const DataItem& item, std::string_view text, std::size_t most, const char* never) {
  if (text.empty()) item.Fail("a text is wanted that is not empty");
  CheckPlain(item, text, most);
  const std::size_t at = text.find_first_of(never);
  if (at != text.npos) item.Fail(std::string("the character ") + text[at] + " is not possible here");
  if (TrimBlanks(text) != text) item.Fail("the text must not begin or end with a blank");
}

void CheckNumber(const DataItem& item, std::string_view text) {
  if (text.find(' ') != text.npos) item.Fail("a blank is not possible here");
  CheckValue(item, text, 16, "'\"&,:;=#");
}

std::vector<std::string> TakenApart(const DataItem& item) {
  try {
    return Elements(item.Text());
  } catch (const ElementsError& error) {
    item.Fail(error.what());
  }
}

}  // namespace

std::string ReadName(const DataItem& item) {
  std::string text = item.Text();
  CheckValue(item, text, 40, "'&");
  return text;
}

std::string ReadNumber(const DataItem& item) {
  std::string text = item.Text();
  CheckNumber(item, text);
  return text;
}

std::vector<std::string> ReadNumbers(const DataItem& item, std::set<std::string>& there, std::size_t most) {
  std::vector<std::string> numbers = TakenApart(item);
  CheckRoom(item, there.size() + numbers.size(), most);
  std::vector<std::string> taken;
  for (const std::string& number : numbers) {
    CheckNumber(item, number);
    if (!there.insert(number).second) taken.push_back(number);
  }
  if (!taken.empty()) item.Fail("there already: " + Separated(AsRanges(taken), ", "));
  return numbers;
}

std::string ReadDescription(Fields& fields) {
  const auto item = fields.Find("description");
  if (!item) return "";
  std::string text = item->Text();
  CheckPlain(*item, text, 200);
  return text;
}

int ReadWhole(const DataItem& item, int least, int most) {
  const int whole = item.Whole();
  if (whole < least || whole > most)
    item.Fail(std::to_string(whole) + " is not between " + std::to_string(least) + " and " + std::to_string(most));
  return whole;
}

std::string ReadBoardType(const DataItem& item) {
  std::string type = item.Text();
  if (BoardTypes().contains(type)) return type;
  std::vector<std::string> possible;
  for (const auto& [name, each] : BoardTypes()) possible.push_back(name);
  std::ranges::sort(possible, {}, [](const std::string& name) { return std::pair(name.size(), name); });
  item.Fail("there is no board type '" + type + "'. Possible: " + Separated(possible, ", "));
}

void CheckRoom(const DataItem& item, std::size_t count, std::size_t most) {
  if (count > most)
    item.Fail("these would be " + std::to_string(count) + "; an exchange has at most " + std::to_string(most));
}

}  // namespace cordboard::workbench
