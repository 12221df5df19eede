#include "workbench/plans/SavedPlan.h"

#include <regex>
#include <string_view>
#include <utility>

namespace cordboard::workbench {

namespace {

constexpr std::string_view beginning = "# saved by cordboard: ";
const char* const advice = "; nothing was kept. Try the plan again with --dry-run --save";

}  // namespace

void SavedPlan::Add(const std::string& line) {
  text_ += line + "\n";
  sum_.Add(line);
  sum_.Add("\n");
}

std::string SavedPlan::Written(const std::string& how, const std::string& key) const {
  return std::string(beginning) + how + ", key " + key + ", sum " + sum_.Written() + "\n" + text_;
}

void SavedPlanCheck::Take(const std::string& line, const std::string& key) {
  if (IsSaved()) {
    sum_.Add(line);
    sum_.Add("\n");
  }
  if (!std::exchange(isFirst_, false) || !line.starts_with(beginning)) return;
  static const std::regex form(R"((.*), key (\S+), sum ([0-9a-f]{16}))");
  std::smatch parts;
  const std::string head = line.substr(beginning.size());
  if (!std::regex_match(head, parts, form)) throw StalePlan(file_ + " was changed after it was saved" + advice);
  if (parts[2] != key)
    throw StalePlan(file_ + " was " + parts[1].str() + ", and the exchange or the options are others now" + advice);
  sumShown_ = parts[3];
}

void SavedPlanCheck::End() const {
  if (IsSaved() && sum_.Written() != sumShown_) throw StalePlan(file_ + " was changed after it was saved" + advice);
}

}  // namespace cordboard::workbench
