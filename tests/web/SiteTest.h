// A site on an exchange in a file of its own, asked as a browser asks it that has come in.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "web/Site.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"
#include "workbench/host/Session.h"
#include "workbench/plans/Plan.h"

namespace cordboard::web {

// A folder that goes with its owner.
class TestFolder {
 public:
  TestFolder();
  ~TestFolder() { std::filesystem::remove_all(path_); }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  std::filesystem::path path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// Makes an exchange of the example plant, with these lines of a plan done.
void MakeExchange(const std::filesystem::path& file, const std::string& lines);
// Does lines of a plan as another program would; fails where one is refused.
void Apply(const std::filesystem::path& file, const std::string& lines);

class SiteTest : public testing::Test {
 protected:
  static constexpr const char* host = "127.0.0.1:8080";

  // Opens the site on the file.
  void Open(const std::filesystem::path& file, bool readOnly = false);

  const Site& site() const { return *site_; }
  // A request that passes the gate.
  Request Coming(const std::string& method, const std::string& path) const;
  Answer Get(const std::string& path, const Fields& query = {}) const;
  // The proof comes with the form. Where the browser is sent on to a page that was made of it, that page.
  Answer Post(const std::string& path, Fields form, bool wantsPart = false) const;

 private:
  std::unique_ptr<Site> site_;
  std::string cookie_;
};

// Whether a page has this markup in it. A failure shows the beginning of what is read on the page.
testing::AssertionResult Says(const std::string& page, const std::string& markup);
// What stands in the field of this name in a page; the value of the first.
std::string ValueOf(const std::string& page, const std::string& name);
// The fields of the form of a page, as a browser would send them back.
Fields FieldsIn(const std::string& page);
// With another value in one of them.
Fields With(Fields fields, const std::string& name, const std::string& value);

}  // namespace cordboard::web
