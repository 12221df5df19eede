// The pages: whatever a browser that has come in asks and sends, the answer is no fault of the program, no text of it
// becomes markup, and nothing changes. An input is the method, the path and the query, and in the next line a form.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "web/Site.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"

namespace {

using namespace cordboard;

class Browser {
 public:
  Browser() : site_(MakeVisit(file_), web::Gate({"127.0.0.1:1"})) {}
  ~Browser() { std::filesystem::remove(file_); }
  Browser(const Browser&) = delete;
  Browser& operator=(const Browser&) = delete;

  web::Answer Ask(const std::string& text) const {
    const std::size_t blank = text.find(' ');
    const std::size_t end = text.find('\n');
    if (blank == text.npos || end == text.npos || blank > end) return {};
    const std::string target = text.substr(blank + 1, end - blank - 1);
    const std::size_t mark = target.find('?');
    const auto query = web::Fields::Read(mark == target.npos ? "" : target.substr(mark + 1));
    auto form = web::Fields::Read(text.substr(end + 1));
    if (!query || !form) return {};
    form->Add("proof", site_.gate().proof());
    const std::string entrance = site_.gate().Entrance();
    return site_.Serve({.method = text.substr(0, blank),
                        .path = target.substr(0, mark),
                        .query = *query,
                        .form = *form,
                        .host = "127.0.0.1:1",
                        .origin = "http://127.0.0.1:1",
                        .cookie = "cordboard-1=" + entrance.substr(entrance.rfind('=') + 1),
                        .contentType = "application/x-www-form-urlencoded"});
  }

 private:
  static web::Visit MakeVisit(const std::filesystem::path& file) {
    workbench::Exchange::Create(file, "R7", workbench::ReadPlant("example"));
    return {file, true, 0};
  }

  const std::filesystem::path file_ =
      std::filesystem::temp_directory_path() / ("cordboard-web-fuzz-" + std::to_string(getpid()) + ".cbx");
  web::Site site_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Browser browser;
  const web::Answer answer = browser.Ask(std::string(reinterpret_cast<const char*>(data), size));
  if (answer.status == web::Fault || answer.status == web::Busy) std::abort();
  if (answer.type.starts_with("text/html") && answer.body.find("<fuzz") != std::string::npos) std::abort();
  return 0;
}
