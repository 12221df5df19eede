// A site on a copy of the example exchange, which is made once for all tests.
#pragma once

#include <gmock/gmock.h>

#include <string>

#include "web/SiteTest.h"
#include "workbench/database/Connection.h"

namespace cordboard::web {

class OfficeTest : public SiteTest {
 protected:
  OfficeTest();

  // Opens a visit anew: what was done before is no part of it.
  void OpenAnew(bool readOnly = false) { Open(file(), readOnly); }
  std::filesystem::path folder() const { return folder_.path(); }
  std::filesystem::path file() const { return folder() / "office.cbx"; }

  // With its query.
  Answer Ask(const std::string& address) const;

  // Changes the exchange by a plan of this name, or past all rules by a statement.
  void ApplyAs(const std::string& name, const std::string& plan) const;
  void Change(const std::string& sql, const std::vector<Value>& parameters = {}) const;

 private:
  const TestFolder folder_;
};

// The file of the exchange of which they are copies.
const std::filesystem::path& ExampleFile();

// What a page says, without its markup: a blank stands for each element.
std::string TextOf(const Answer& answer);
std::size_t CountIn(const std::string& text, const std::string& piece);

}  // namespace cordboard::web
