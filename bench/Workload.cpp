#include "bench/Workload.h"

#include <sstream>
#include <stdexcept>

#include "bench/Plants.h"
#include "workbench/actions/Filling.h"
#include "workbench/actions/Generation.h"

namespace cordboard::bench {

namespace {

using workbench::Exchange;

constexpr const char* release = "R8";
constexpr const char* command = "KSEXI";
constexpr int firstSeries = 1000;
constexpr int spare = 100;  // positions that are free at the end

workbench::Plant PlantFor(int extensions) { return PlantWith("31", 16, extensions + spare); }

std::string Number(int place) { return std::to_string(firstSeries * numbersPerSeries + place); }

// A line for each, with {n} for its number.
std::string Lines(const std::string& line, int count) {
  std::string plan;
  const std::size_t at = line.find("{n}");
  for (int place = 0; place < count; ++place) plan += line.substr(0, at) + Number(place) + line.substr(at + 3) + "\n";
  return plan;
}

void Expect(bool holds, const char* what) {
  if (!holds) throw std::runtime_error(std::string("the workload went wrong: ") + what);
}

}  // namespace

const std::array<Workload::Step, 8> Workload::steps = {
    {{"add a series of 100 numbers", 0, &Workload::AddSeries, "AddSeries", 0.65, 3750},
     {"check one value against its list", checks, &Workload::Check, "Check", 0.6, 30},
     {"list all numbers", lists, &Workload::ListNumbers, "ListNumbers", 1.7, 11000},
     {"generate, per series", 0, &Workload::Generate, "Generate", 1.35, 82},
     {"add an extension", 0, &Workload::Add, "Add", 0.75, 560},
     {"edit an extension", 0, &Workload::Edit, "Edit", 0.85, 280},
     {"list all free positions", lists, &Workload::ListPositions, "ListPositions", 1.6, 1120},
     {"delete an extension", 0, &Workload::Delete, "Delete", 0.65, 275}}};

Workload::Workload(int series, std::unique_ptr<Exchange> exchange, const workbench::Session::Decorate& decorate)
    : series_(series), exchange_(std::move(exchange)), session_(*exchange_, decorate) {
  // The fixed values are made when they are first asked for: that is no part of the work.
  exchange_->Database("static");
}

Workload::Workload(int series, const workbench::Session::Decorate& decorate)
    : Workload(series, Exchange::CreateInMemory(release, PlantFor(series)), decorate) {}

Workload::Workload(int series, const std::string& file)
    : Workload(series, Exchange::Create(file, release, PlantFor(series)), {}) {}

void Workload::Apply(const std::string& plan) {
  std::istringstream in(plan);
  const workbench::PlanResult result = workbench::ApplyPlan(session_, {{"workload", in}}, {});
  Expect(result.kept && result.done == static_cast<std::size_t>(series_), "the plan was refused");
}

void Workload::AddSeries() {
  std::string plan;
  for (int i = firstSeries; i < firstSeries + series_; ++i) {
    const std::string number = std::to_string(i);
    plan.append("NANSI:NUMTYP=EX,NUMSE=").append(number).append("00&&").append(number).append("99;\n");
  }
  Apply(plan);
}

void Workload::Check() {
  session_.host().OpenForm(*workbench::FindForm(command));
  for (int i = 0; i < checks; ++i) {
    const workbench::ValueList* list = session_.host().FreshList("DIR");
    Expect(list != nullptr && list->Contains(Number(i * 7)), "a value is not in its list");
  }
}

void Workload::List(const char* parameter, const std::vector<workbench::Assignment>& given, int least) {
  FillForm(session_, *workbench::FindForm(command), given);
  for (int i = 0; i < lists; ++i)
    Expect(session_.host().FreshList(parameter)->Count() >= static_cast<std::size_t>(least), "the list is too short");
}

void Workload::ListNumbers() { List("DIR", {}, series_ * numbersPerSeries); }
void Workload::ListPositions() { List("EQU", {{"ITYPE", "3"}}, spare); }

void Workload::Generate() {
  Expect(workbench::Generate(session_).lines.size() == static_cast<std::size_t>(series_), "lines are missing");
}

void Workload::Add() {
  Apply(Lines("KSEXI:DIR={n},ITYPE=3,EQU=next,TRAF=00,SERV=000000000,CDIV=000000000,ROC=010000;", series_));
}
void Workload::Edit() { Apply(Lines("edit KSEXI DIR={n}:CUST=1;", series_)); }
void Workload::Delete() { Apply(Lines("delete KSEXI DIR={n};", series_)); }

}  // namespace cordboard::bench
