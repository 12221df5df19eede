// Plan lines: whatever a plan holds, each line is done or refused, and a refused plan changes nothing.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>

#include "script/Conversions.h"
#include "workbench/exchange/Plant.h"
#include "workbench/plans/Plan.h"

using namespace cordboard;
using namespace cordboard::workbench;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto exchange = Exchange::CreateInMemory("R7", ReadPlant("example"));
  static Session session(*exchange);
  const auto numbers = [] { return ToInt32(exchange->Dynamic().Single("SELECT COUNT(*) FROM [NANSI]")); };

  std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
  const PlanResult result = ApplyPlan(session, {{"plan", in}}, {.dryRun = true});
  if (result.kept || exchange->OpenTransactions() != 0 || numbers() != 0) std::abort();
  return 0;
}
