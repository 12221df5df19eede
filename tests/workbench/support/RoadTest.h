// A road test: an exchange on the example plant, the session of its user, and what the user sees. Road.h has the same
// for tests that compare what is told of a line as one text.
#pragma once

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "support/SourceFolder.h"
#include "workbench/actions/Filling.h"
#include "workbench/actions/Generation.h"
#include "workbench/data/Resources.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/plans/Plan.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {

class RoadTest : public testing::Test {
 protected:
  // Opens another exchange in place of the present one.
  void OpenNew(const std::string& release) {
    session_.reset();
    exchange_ = ExampleExchange(release);
    session_.emplace(*exchange_);
  }

  // Performs one line of a plan as a user action of its own. What it was refused for, or warned of, stands in texts().
  bool Do(const std::string& line) {
    const Outcome outcome = Perform(*session_, *ParsePlanLine(line));
    texts_.clear();
    for (const auto& problems : {outcome.problems, outcome.warnings}) {
      for (const Problem& problem : problems)
        texts_.push_back(problem.parameter + (problem.parameter.empty() ? "" : ": ") + problem.message +
                         (problem.possible ? " Possible: " + InWords(*problem.possible) : ""));
    }
    return outcome.done;
  }

  void Prepare(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) ASSERT_TRUE(Do(line)) << line << ": " << testing::PrintToString(texts_);
  }

  void Apply(const std::string& plan) {
    std::istringstream in{std::string(Resource(plan))};
    const PlanResult result = ApplyPlan(*session_, {{plan, in}}, {});
    EXPECT_TRUE(result.kept) << plan;
    for (const LineReport& report : result.reports)
      ADD_FAILURE() << plan << ":" << report.line << ": " << report.problems.front().message;
  }

  // The values of a parameter that are valid while the form holds `given`.
  std::vector<std::string> Valid(const std::string& command, const std::string& parameter,
                                 const std::vector<Assignment>& given = {}) {
    EXPECT_THAT(FillForm(*session_, *FindForm(command), given).problems(), testing::IsEmpty());
    const ValueList* list = session_->host().FreshList(parameter);
    std::vector<std::string> values;
    if (list == nullptr) return {"no list"};
    for (const ValidValue& entry : list->All()) values.push_back(entry.value);
    return values;
  }

  std::vector<std::string> Lines(const std::string& command) {
    std::vector<std::string> lines;
    for (const GeneratedLine& line : Generate(*session_).lines) {
      if (line.command == command) lines.push_back(line.text);
    }
    return lines;
  }

  Value Single(const std::string& sql) { return exchange_->Dynamic().Single(sql); }
  bool IsNumberUsed(const std::string& number) {
    return exchange_->Dynamic().Single("SELECT USED FROM NANSI WHERE NUMSE = ?", {number}) == Value(true);
  }
  bool IsPositionUsed(const std::string& EQU) {
    return exchange_->Dynamic().Single("SELECT USED FROM Equipment WHERE EQU = ?", {EQU}) == Value(true);
  }
  const std::vector<std::string>& texts() const { return texts_; }
  Session& session() { return *session_; }

 private:
  std::unique_ptr<Exchange> exchange_;
  std::optional<Session> session_;
  std::vector<std::string> texts_;
};

// The lines that an example has to give: tests/workbench/golden/NAME.
inline std::string Golden(const std::string& name) {
  std::ifstream in(SourceFile("tests/workbench/golden/" + name));
  return std::string(std::istreambuf_iterator<char>(in), {});
}

}  // namespace cordboard::workbench
