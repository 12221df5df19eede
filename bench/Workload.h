// What an administrator does with number series: adds them by a plan, asks which values are possible, generates.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "workbench/exchange/Exchange.h"
#include "workbench/host/Session.h"

namespace cordboard::bench {

struct Step {
  const char* name;
  int actions;  // what the cost is divided by; 0 stands for the number of series
};

inline constexpr int numbersPerSeries = 100;
inline constexpr int checks = 100;
inline constexpr int lists = 3;
inline constexpr std::array<Step, 4> steps = {{{"add a series of 100 numbers", 0},
                                               {"check one value against its list", checks},
                                               {"list all values", lists},
                                               {"generate, per series", 0}}};

class Workload {
 public:
  // On an exchange in memory, or in a file that is made for it.
  explicit Workload(int series);
  Workload(int series, const std::string& file);

  void Do(std::size_t step);

 private:
  Workload(int series, std::unique_ptr<workbench::Exchange> exchange);
  void Add();
  void Check();
  void List();
  void Generate();

  int series_;
  std::string plan_;
  std::unique_ptr<workbench::Exchange> exchange_;
  workbench::Session session_;
};

}  // namespace cordboard::bench
