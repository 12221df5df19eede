#include "bench/Workload.h"

#include <sstream>
#include <stdexcept>

#include "workbench/actions/Generation.h"
#include "workbench/exchange/Plant.h"
#include "workbench/plans/Plan.h"

namespace cordboard::bench {

namespace {

using workbench::Exchange;

constexpr const char* release = "R8";
constexpr int firstSeries = 1000;

// Whose list is asked for: the first command of these that is there lists numbers that were just added.
struct ListedParameter {
  const char* command;
  const char* parameter;
  const char* NUMTYP;
  bool numbers;
};
constexpr ListedParameter listedParameters[] = {
    {"KSEXI", "DIR", "EX", true}, {"RODDI", "DEST", "ED", true}, {"NANSI", "NUMTYP", "EX", false}};

const ListedParameter& Listed() {
  for (const ListedParameter& listed : listedParameters) {
    if (workbench::FindForm(listed.command) != nullptr) return listed;
  }
  throw std::logic_error("there is no form to list values for");
}

std::string Plan(int series) {
  std::string plan;
  for (int i = firstSeries; i < firstSeries + series; ++i) {
    const std::string number = std::to_string(i);
    plan += std::string("NANSI:NUMTYP=") + Listed().NUMTYP + ",NUMSE=" + number + "00&&" + number + "99;\n";
  }
  return plan;
}

void Expect(bool holds, const char* what) {
  if (!holds) throw std::runtime_error(std::string("the workload went wrong: ") + what);
}

}  // namespace

Workload::Workload(int series, std::unique_ptr<Exchange> exchange)
    : series_(series), plan_(Plan(series)), exchange_(std::move(exchange)), session_(*exchange_) {
  // The fixed values are made when they are first asked for: that is no part of the work.
  exchange_->Database("static");
}

Workload::Workload(int series) : Workload(series, Exchange::CreateInMemory(release, workbench::ReadPlant("example"))) {}

Workload::Workload(int series, const std::string& file)
    : Workload(series, Exchange::Create(file, release, workbench::ReadPlant("example"))) {}

void Workload::Do(std::size_t step) {
  switch (step) {
    case 0: return Add();
    case 1: return Check();
    case 2: return List();
    default: return Generate();
  }
}

void Workload::Add() {
  std::istringstream plan(plan_);
  const workbench::PlanResult result = workbench::ApplyPlan(session_, {{"series", plan}}, {});
  Expect(result.kept && result.done == static_cast<std::size_t>(series_), "the plan was refused");
}

void Workload::Check() {
  session_.host().OpenForm(*workbench::FindForm(Listed().command));
  for (int i = 0; i < checks; ++i) {
    const std::string value =
        Listed().numbers ? std::to_string(firstSeries * numbersPerSeries + i * 7) : std::string(Listed().NUMTYP);
    const workbench::ValueList* list = session_.host().FreshList(Listed().parameter);
    Expect(list != nullptr && list->Contains(value), "a value is not in its list");
  }
}

void Workload::List() {
  session_.host().OpenForm(*workbench::FindForm(Listed().command));
  const std::size_t least = Listed().numbers ? static_cast<std::size_t>(series_ * numbersPerSeries) : 1;
  for (int i = 0; i < lists; ++i)
    Expect(session_.host().FreshList(Listed().parameter)->All().size() >= least, "the list is too short");
}

void Workload::Generate() {
  Expect(workbench::Generate(session_).lines.size() == static_cast<std::size_t>(series_), "lines are missing");
}

}  // namespace cordboard::bench
