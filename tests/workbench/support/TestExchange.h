// An exchange in memory with the example plant, and short ways to look into it.
#pragma once

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>

#include "script/TracingHost.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"
#include "workbench/support/TemporaryFolder.h"

namespace cordboard::workbench {

// A copy of one that is made once for its release: to make its tables takes much longer than to read them. All copies
// have the same states; where another exchange is wanted, or a new one, CreateInMemory makes it.
inline std::unique_ptr<Exchange> ExampleExchange(const std::string& release = "R7") {
  static const TemporaryFolder made;
  std::string name = release;
  std::ranges::replace(name, '/', '-');
  if (!std::filesystem::exists(made / name)) Exchange::Create(made / name, release, ReadPlant("example"));
  return Exchange::OpenForReading(made / name);
}

// The rows of a query as one text, [column][row].
inline std::string Rows(Exchange& exchange, const std::string& sql, const std::string& database = "dynamic") {
  return TraceText(exchange.Database(database)->Run(sql));
}

inline int Count(Exchange& exchange, const std::string& table) {
  return static_cast<int>(exchange.Dynamic().Single("SELECT COUNT(*) FROM [" + table + "]").number());
}

}  // namespace cordboard::workbench
