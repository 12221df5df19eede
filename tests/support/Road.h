// A user's road on a real exchange: one line of a plan after the other, and what the user is told of each. No line may
// leave a transaction open, or hold a statement that the database refuses.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "script/Conversions.h"
#include "workbench/actions/Filling.h"
#include "workbench/actions/Generation.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/support/TestExchange.h"

namespace cordboard::workbench {

class Road {
 public:
  explicit Road(const std::string& release = "R7") : exchange_(ExampleExchange(release)), session_(*exchange_) {}

  Exchange& exchange() { return *exchange_; }
  Session& session() { return session_; }

  // Performs one line, with no transaction around it. Gives "done", with the warnings after it, or the reasons of the
  // refusal, one a line.
  std::string Do(const std::string& line) {
    const auto action = ParsePlanLine(line);
    if (!action) return "no action";
    const Outcome outcome = Perform(session_, *action);
    EXPECT_EQ(exchange_->OpenTransactions(), 0) << line;
    for (const std::string& trace : outcome.debugLines)
      EXPECT_EQ(trace.find(" statement: "), trace.npos) << "refused by the database: " << trace;
    std::string text = outcome.done ? "done" : "";
    for (const Problem& problem : outcome.done ? outcome.warnings : outcome.problems)
      text += (text.empty() ? "" : "\n") + Written(problem);
    return text;
  }

  // The values that can be given for a parameter, by blanks, where the form holds what is given already.
  std::string Values(const std::string& command, const std::string& parameter,
                     const std::vector<Assignment>& given = {}) {
    const Filling filling = FillForm(session_, *FindForm(command), given);
    return filling.IsRefused() ? Written(filling.problems().front()) : Offered(parameter);
  }

  // The same for the form that is open.
  std::string Offered(const std::string& parameter) {
    const ValueList* list = session_.host().FreshList(parameter);
    if (list == nullptr) return "no list";
    std::string text;
    for (const ValidValue& entry : list->All()) text += (text.empty() ? "" : " ") + entry.value;
    return text;
  }

  // Rows of the exchange: columns by "|", rows by blanks, "-" for a null.
  std::string Rows(const std::string& sql) {
    const RowSet rows = exchange_->Dynamic().Run(sql);
    std::string text;
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      text += row == 0 ? "" : " ";
      for (std::size_t column = 0; column < rows.ColumnCount(); ++column)
        text += (column == 0 ? "" : "|") + (rows[column][row].IsNull() ? "-" : Joined(rows[column][row]));
    }
    return text;
  }

  // The lines of the exchange, or with "site" those of its templates.
  std::vector<std::string> Lines(const std::string& database = "dynamic") {
    const Generated generated = Generate(session_, database);
    for (const auto& [command, problem] : generated.problems) ADD_FAILURE() << command << ": " << problem.message;
    std::vector<std::string> lines;
    for (const GeneratedLine& line : generated.lines) lines.push_back(line.text);
    return lines;
  }

 private:
  static std::string Written(const Problem& problem) {
    std::string text = problem.parameter.empty() ? "" : problem.parameter + "=" + problem.value + ": ";
    text += problem.message;
    return problem.possible ? text + " [" + InWords(*problem.possible) + "]" : text;
  }

  std::unique_ptr<Exchange> exchange_;
  Session session_;
};

}  // namespace cordboard::workbench
