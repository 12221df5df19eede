// What an administrator does: adds number series by a plan, asks which values are possible, generates, and adds,
// changes and deletes extensions line by line.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "workbench/exchange/Exchange.h"
#include "workbench/host/Session.h"
#include "workbench/plans/Plan.h"

namespace cordboard::bench {

inline constexpr int numbersPerSeries = 100;
inline constexpr int checks = 100;
inline constexpr int lists = 3;

class Workload {
 public:
  // On an exchange in memory, or in a file that is made for it. There are as many extensions as series.
  explicit Workload(int series, const workbench::Session::Decorate& decorate = {});
  Workload(int series, const std::string& file);

  struct Step {
    const char* name;
    int actions;  // what the cost is divided by; 0 stands for the number of series
    void (Workload::*work)();
    const char* function;  // which that is
    double bound;          // of the ratio to the replay of all statements
    double instructions;   // of the thousands of instructions of an action
  };
  static const std::array<Step, 8> steps;

  void Do(const Step& step) { (this->*step.work)(); }
  // By how many actions the cost of a step is divided.
  static int ActionsOf(const Step& step, int series) { return step.actions == 0 ? series : step.actions; }

 private:
  Workload(int series, std::unique_ptr<workbench::Exchange> exchange, const workbench::Session::Decorate& decorate);

  void AddSeries();
  void Check();
  void ListNumbers();
  void Generate();
  void Add();
  void Edit();
  void ListPositions();
  void Delete();

  void Apply(const std::string& plan);
  void List(const char* parameter, const std::vector<workbench::Assignment>& given, int least);

  int series_;
  std::unique_ptr<workbench::Exchange> exchange_;
  workbench::Session session_;
};

}  // namespace cordboard::bench
