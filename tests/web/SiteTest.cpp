#include "SiteTest.h"

#include <cstdlib>
#include <regex>
#include <sstream>

namespace cordboard::web {

using workbench::Exchange;

namespace {

std::string Plain(std::string markup) {
  const std::pair<const char*, const char*> marks[] = {
      {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&#39;", "'"}, {"&amp;", "&"}};
  for (const auto& [mark, sign] : marks) markup = std::regex_replace(markup, std::regex(mark), sign);
  return markup;
}

std::string Attribute(const std::string& element, const std::string& name) {
  std::smatch found;
  return std::regex_search(element, found, std::regex(" " + name + "=\"([^\"]*)\"")) ? Plain(found[1]) : "";
}

}  // namespace

TestFolder::TestFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "cordboard-web-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for tests");
  path_ = name;
}

void Apply(const std::filesystem::path& file, const std::string& lines) {
  const auto exchange = Exchange::OpenForWriting(file);
  workbench::Session session(*exchange);
  std::istringstream plan(lines);
  const workbench::PlanResult result = ApplyPlan(session, {{.name = "test.plan", .in = plan}}, {});
  for (const auto& report : result.reports)
    for (const auto& problem : report.problems) ADD_FAILURE() << report.line << ": " << problem.message;
}

void MakeExchange(const std::filesystem::path& file, const std::string& lines) {
  Exchange::Create(file, "R7", workbench::ReadPlant("example"));
  Apply(file, lines);
}

void SiteTest::Open(const std::filesystem::path& file, bool readOnly) {
  site_ = std::make_unique<Site>(Visit(file, readOnly, 0), Gate({host}));
  const std::string entrance = site_->gate().Entrance();
  cookie_ = "cordboard-8080=" + entrance.substr(entrance.rfind('=') + 1);
}

Request SiteTest::Coming(const std::string& method, const std::string& path) const {
  return {.method = method,
          .path = path,
          .host = host,
          .origin = std::string("http://") + host,
          .cookie = cookie_,
          .contentType = "application/x-www-form-urlencoded"};
}

Answer SiteTest::Get(const std::string& path, const Fields& query) const {
  Request request = Coming("GET", path);
  request.query = query;
  return site_->Serve(request);
}

Answer SiteTest::Post(const std::string& path, Fields form, bool wantsPart) const {
  Request request = Coming("POST", path);
  if (!form.Has("proof")) form.Add("proof", site_->gate().proof());
  request.form = std::move(form);
  request.wantsPart = wantsPart;
  const Answer answer = site_->Serve(request);
  const std::string kept = "/kept?page=";
  const std::string& location = answer.headers["Location"];
  return location.starts_with(kept) ? Get("/kept", {{"page", location.substr(kept.size())}}) : answer;
}

testing::AssertionResult Says(const std::string& page, const std::string& markup) {
  if (page.find(markup) != page.npos) return testing::AssertionSuccess() << "the page says: " << markup;
  const std::size_t main = page.find("<h1>");
  const std::string read = std::regex_replace(main == page.npos ? page : page.substr(main), std::regex("<[^>]*>"), " ");
  return testing::AssertionFailure() << "the page does not say: " << markup << "\nbut: " << read.substr(0, 600);
}

std::string ValueOf(const std::string& page, const std::string& name) { return FieldsIn(page)[name]; }

Fields FieldsIn(const std::string& page) {
  Fields fields;
  const std::regex input("<input [^>]*>");
  const auto isLeftOut = [](const std::string& element) {
    return Attribute(element, "type") == "checkbox" && element.find(" checked") == element.npos;
  };
  for (auto each = std::sregex_iterator(page.begin(), page.end(), input); each != std::sregex_iterator(); ++each)
    if (!isLeftOut(each->str())) fields.Add(Attribute(each->str(), "name"), Attribute(each->str(), "value"));
  return fields;
}

Fields With(Fields fields, const std::string& name, const std::string& value) {
  Fields changed;
  bool isThere = false;
  for (const auto& [each, old] : fields) {
    changed.Add(each, each == name ? value : old);
    isThere = isThere || each == name;
  }
  if (!isThere) changed.Add(name, value);
  return changed;
}

}  // namespace cordboard::web
