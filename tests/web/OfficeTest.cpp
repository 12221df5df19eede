#include "web/OfficeTest.h"

#include <regex>
#include <sstream>

#include "workbench/support/ExamplePlans.h"

namespace cordboard::web {

using workbench::Exchange;

const std::filesystem::path& ExampleFile() {
  static const TestFolder folder;
  static const std::filesystem::path file = [] {
    std::string plans;
    for (const std::string& plan : workbench::ExamplePlans()) plans += workbench::Resource("plans/" + plan);
    std::filesystem::path made = folder.path() / "example.cbx";
    MakeExchange(made, plans);
    return made;
  }();
  return file;
}

OfficeTest::OfficeTest() {
  std::filesystem::copy_file(ExampleFile(), file());
  OpenAnew();
}

Answer OfficeTest::Ask(const std::string& address) const {
  const std::size_t mark = address.find('?');
  return Get(address.substr(0, mark), *Fields::Read(mark == address.npos ? "" : address.substr(mark + 1)));
}

void OfficeTest::ApplyAs(const std::string& name, const std::string& plan) const {
  const auto exchange = Exchange::OpenForWriting(file());
  workbench::Session session(*exchange);
  EXPECT_TRUE(ApplyText(session, name, plan).kept) << plan;
}

void OfficeTest::Change(const std::string& sql, const std::vector<Value>& parameters) const {
  Exchange::OpenForWriting(file())->Dynamic().Run(sql, parameters);
}

std::string TextOf(const Answer& answer) {
  const std::size_t main = answer.body.find("<main");
  static const std::regex mark("<[^>]*>");
  static const std::regex blanks(" +");
  const std::string body = answer.body.substr(main == answer.body.npos ? 0 : main);
  return std::regex_replace(std::regex_replace(body, mark, " "), blanks, " ");
}

std::size_t CountIn(const std::string& text, const std::string& piece) {
  std::size_t count = 0;
  for (std::size_t at = text.find(piece); at != text.npos; at = text.find(piece, at + piece.size())) ++count;
  return count;
}

}  // namespace cordboard::web
