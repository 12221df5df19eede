// The library without the workbench: a host of one's own with a single range of numbers, and the exchange command line
// that the number series command makes of it.
#include <iostream>
#include <memory>
#include <string>

#include "entry/CScript.h"
#include "script/NullHost.h"
#include "script/RunTimeFailure.h"

namespace {

using cordboard::RowSet;
using cordboard::Selector;

// The database: one blocked range to read, and a table of lines to write, which is the standard output.
class OneRangeHost : public cordboard::NullHost {
 public:
  bool scRunQuery(const std::string& sql, RowSet* rows, const Selector&) override {
    const std::string insert = "INSERT INTO BuiltCmd VALUES (12,'";
    if (sql == "SELECT DISTINCT Start, End, Numtyp From NANSIBlockedRange" && rows != nullptr) {
      *rows = RowSet({{"100"}, {"199"}, {"EX"}});
    } else if (sql.starts_with(insert)) {
      std::cout << sql.substr(insert.size(), sql.size() - insert.size() - 2) << '\n';
    }
    return true;
  }
};

}  // namespace

int main() {
  cordboard::CScript script;
  script.AddObject(std::make_shared<OneRangeHost>());
  try {
    return script.Run(1, "R7", "GenerateCmd", "NANSI", 0, {"12"}) ? 0 : 1;
  } catch (const cordboard::RunTimeFailure& failure) {
    std::cerr << Name(failure.cause()) << ": " << failure.what() << '\n';
    return 1;
  }
}
