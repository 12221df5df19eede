#include "workbench/plans/SavedPlan.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace cordboard::workbench {

namespace {

constexpr std::string_view beginning = "# saved by cordboard: ";
constexpr std::string_view keyMark = ", key ";
constexpr std::string_view sumMark = ", sum ";
const char* const advice = "; nothing was kept. Try the plan again with --dry-run --save";

}  // namespace

void SavedPlan::Add(const std::string& line) {
  text_ += line + "\n";
  sum_.Add(line);
  sum_.Add("\n");
}

std::string SavedPlan::Written(const std::string& how, const std::string& key) const {
  return std::string(beginning) + how + std::string(keyMark) + key + std::string(sumMark) + sum_.Written() + "\n" +
         text_;
}

std::string WithoutFirstLine(std::string plan) {
  if (plan.starts_with(beginning)) plan.erase(0, std::min(plan.find('\n'), plan.size() - 1) + 1);
  return plan;
}

void SavedPlanCheck::Take(const std::string& line, const std::string& key) {
  if (IsSaved()) {
    sum_.Add(line);
    sum_.Add("\n");
  }
  if (!std::exchange(isFirst_, false) || !line.starts_with(beginning)) return;
  // "how it was tried, key 1f2e, sum 0123456789abcdef": the first part may have any signs in it.
  const std::string head = line.substr(beginning.size());
  const std::size_t sumAt = head.rfind(sumMark);
  const std::size_t keyAt = sumAt == head.npos ? head.npos : head.rfind(keyMark, sumAt);
  sumShown_ = keyAt == head.npos ? "" : head.substr(sumAt + sumMark.size());
  if (sumShown_.size() != 16) throw StalePlan(file_ + " was changed after it was saved" + advice);
  if (head.substr(keyAt + keyMark.size(), sumAt - keyAt - keyMark.size()) != key)
    throw StalePlan(file_ + " was " + head.substr(0, keyAt) + ", and the exchange or the options are others now" +
                    advice);
}

void SavedPlanCheck::End() const {
  if (IsSaved() && sum_.Written() != sumShown_) throw StalePlan(file_ + " was changed after it was saved" + advice);
}

}  // namespace cordboard::workbench
