// An exchange in memory with the example plant, and short ways to look into it.
#pragma once

#include <memory>
#include <string>

#include "script/TracingHost.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"

namespace cordboard::workbench {

inline std::unique_ptr<Exchange> ExampleExchange(const std::string& release = "R7") {
  static const Plant plant = ReadPlant("example");
  return Exchange::CreateInMemory(release, plant);
}

// The rows of a query as one text, [column][row].
inline std::string Rows(Exchange& exchange, const std::string& sql, const std::string& database = "dynamic") {
  return TraceText(exchange.Database(database)->Run(sql));
}

inline int Count(Exchange& exchange, const std::string& table) {
  return static_cast<int>(exchange.Dynamic().Single("SELECT COUNT(*) FROM [" + table + "]").number());
}

}  // namespace cordboard::workbench
