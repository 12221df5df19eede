// cordboard check: whether an exchange file is whole.

#include <nlohmann/json.hpp>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/database/Connection.h"
#include "workbench/exchange/Damage.h"

namespace cordboard::cli {

int Check(const CheckOptions& options) {
  const auto exchange = OpenToRead(options.file);
  const std::vector<std::string> found = workbench::FindDamage(*exchange);
  for (const std::string& damage : found) Error(options.file + ": " + damage);
  if (!found.empty()) Note("advice", std::string(workbench::adviceOnDamage));
  if (options.json) {
    PrintJson({{"file", options.file}, {"release", exchange->release()}});
  } else if (found.empty()) {
    Note("checked", options.file + ": release " + exchange->release() + ", nothing is damaged");
  }
  return found.empty() ? Done : Trouble;
}

}  // namespace cordboard::cli
