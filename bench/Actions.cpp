#include "bench/Actions.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "bench/LargeExchange.h"
#include "bench/Measure.h"
#include "script/Conversions.h"
#include "tests/workbench/support/Steps.h"
#include "workbench/actions/Filling.h"
#include "workbench/actions/Generation.h"
#include "workbench/actions/Selection.h"
#include "workbench/plans/PlanLine.h"

namespace cordboard::bench {

namespace {

using workbench::Assignment;
using workbench::Exchange;
using workbench::FormDefinition;
using workbench::Outcome;
using workbench::ParameterDefinition;
using workbench::Session;
using workbench::StepCounter;
using workbench::StoredRecord;
using workbench::UserAction;

constexpr std::size_t firstOnes = 10;
constexpr const char* inNoList = "98765432";

template <typename Work>
Cost CostOf(Work work) {
  Cost cost;
  cost.milliseconds = Seconds([&] { cost.steps = static_cast<double>(StepCounter::Steps(work)); }) * 1e3;
  return cost;
}

// Of what changes nothing, the least time of several.
template <typename Work>
Cost LeastCostOf(Work work) {
  Cost least = CostOf(work);
  for (int again = 1; again < repeats; ++again)
    least.milliseconds = std::min(least.milliseconds, CostOf(work).milliseconds);
  return least;
}

void Expect(bool holds, const std::string& command, const std::string& what) {
  if (!holds) throw std::runtime_error(command + ": " + what);
}

std::string WhyNot(const Outcome& outcome) { return outcome.done ? "" : InWords(outcome.problems.front()); }

// The action with what "next" stood for.
UserAction WithTaken(UserAction action, const std::vector<Assignment>& taken) {
  for (const Assignment& each : taken)
    std::ranges::find(action.values, each.name, &Assignment::name)->value = each.value;
  return action;
}

class Measurement {
 public:
  explicit Measurement(Exchange& exchange) : exchange_(exchange), session_(exchange) {}

  Costs Do(const std::vector<std::string>& plans) {
    CountGeneration();
    for (const std::string& plan : plans) {
      std::istringstream lines(plan);
      for (std::string line; std::getline(lines, line);) {
        if (const auto action = workbench::ParsePlanLine(line)) CountLine(*action);
      }
    }
    for (const auto& [command, add] : lastAdds_) {
      CountRefused(add);
      CountEdit(add);
    }
    CountDeletes();
    return costs_;
  }

 private:
  void CountGeneration() {
    for (const FormDefinition* form : workbench::Forms()) {
      if (!form->generates) continue;
      // The first time prepares the statements.
      std::size_t lines = LinesOf(session_, *form).size();
      costs_[form->command + " generate"] = LeastCostOf([&] { lines = LinesOf(session_, *form).size(); }).Each(lines);
    }
  }

  void CountLine(const UserAction& action) {
    const bool isAdd = action.kind == UserAction::Kind::Add;
    if (isAdd && !lastAdds_.contains(action.command)) CountLists(action);
    const Outcome outcome = Count(action);
    Expect(outcome.done, action.command, WhyNot(outcome));
    if (!isAdd) return;
    lastAdds_[action.command] = WithTaken(action, outcome.taken);
    NoteAdded(*workbench::FindForm(action.command));
  }

  // A list that there is with other values alone is left out.
  void CountLists(const UserAction& add) {
    const FormDefinition& form = *workbench::FindForm(add.command);
    for (const ParameterDefinition& parameter : form.parameters) {
      if (!parameter.list) continue;
      std::vector<Assignment> others = add.values;
      std::erase_if(others, [&](const Assignment& value) { return value.name == parameter.name; });
      FillForm(session_, form, others);
      const workbench::ValueList* list = session_.host().FreshList(parameter.name);
      if (list == nullptr) continue;
      const std::string name = add.command + " " + parameter.name;
      costs_[name + " first"] = LeastCostOf([&] { list->First(firstOnes); });
      std::size_t values = 0;
      costs_[name + " whole"] = LeastCostOf([&] { values = list->Count(); }).Each(values);
    }
  }

  void CountRefused(const UserAction& add) {
    Count(add, " again");
    for (std::size_t i = 0; i < add.values.size(); ++i) {
      const ParameterDefinition* parameter = workbench::FindForm(add.command)->Find(add.values[i].name);
      if (parameter == nullptr || !parameter->list) continue;
      UserAction wrong = add;
      wrong.values[i].value = inNoList;
      Expect(!Count(wrong, " refused").done, add.command, parameter->name + " takes " + inNoList);
    }
  }

  // The first of the values that can be changed.
  void CountEdit(const UserAction& add) {
    const auto record = std::ranges::find(added_.rbegin(), added_.rend(), add.command,
                                          [](const StoredRecord& each) { return each.definition->command; });
    if (record == added_.rend()) return;
    const auto selection = SelectionOf(exchange_, *record->definition, *record);
    for (const Assignment& value : add.values) {
      const UserAction edit{UserAction::Kind::Edit, add.command, selection, {value}};
      if (!CanBeDone(edit)) continue;
      Count(edit);
      return;
    }
  }

  void CountDeletes() {
    for (auto record = added_.rbegin(); record != added_.rend(); ++record) {
      const std::string& command = record->definition->command;
      const auto selection = SelectionOf(exchange_, *workbench::FindForm(command), *record);
      if (selection.empty()) continue;  // it went with another one
      const Outcome outcome = Count({UserAction::Kind::Delete, command, selection, {}});
      Expect(outcome.done, command, WhyNot(outcome));
    }
  }

  // Identifiers count up from 1, and those of all records that were there before lie higher.
  void NoteAdded(const FormDefinition& form) {
    for (const FormDefinition* table : form.OfEachTable()) {
      const auto rows =
          SelectRecords(exchange_, *table, "[CmdId]", {}, " WHERE [CmdId] < " + std::to_string(firstOfMany));
      for (std::size_t row = 0; row < rows.RowCount(); ++row) {
        const StoredRecord record{table, ToInt32(rows[0][row])};
        if (std::ranges::find(added_, record.CmdId, &StoredRecord::CmdId) == added_.end()) added_.push_back(record);
      }
    }
  }

  bool CanBeDone(const UserAction& action) {
    const workbench::Transaction undone(exchange_);
    return Perform(session_, action).done;
  }

  // Without its transaction: at the end of one SQLite walks all pages that it holds, where one of them was taken back.
  // In memory these are the whole exchange.
  Outcome Count(const UserAction& action, const char* how = "") {
    static constexpr const char* kinds[] = {" add", " edit", " delete"};
    workbench::Transaction transaction(exchange_);
    Outcome outcome;
    costs_[action.command + kinds[static_cast<int>(action.kind)] + how] +=
        CostOf([&] { outcome = Perform(session_, action); });
    outcome.done ? transaction.Commit() : transaction.RollBack();
    return outcome;
  }

  Exchange& exchange_;
  Session session_;
  Costs costs_;
  std::map<std::string, UserAction> lastAdds_;
  std::vector<StoredRecord> added_;
};

}  // namespace

Cost& Cost::operator+=(const Cost& more) {
  steps += more.steps;
  milliseconds += more.milliseconds;
  return *this;
}

Cost Cost::Each(std::size_t count) const {
  const double parts = static_cast<double>(std::max<std::size_t>(count, 1));
  return {steps / parts, milliseconds / parts};
}

Costs CostsOn(Exchange& exchange, const std::vector<std::string>& plans) { return Measurement(exchange).Do(plans); }

}  // namespace cordboard::bench
