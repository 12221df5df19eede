#include "workbench/plans/LeftOut.h"

#include <map>
#include <set>

#include "script/Conversions.h"
#include "workbench/actions/Generation.h"
#include "workbench/actions/Records.h"
#include "workbench/database/Schema.h"
#include "workbench/plans/PlanLine.h"

namespace cordboard::workbench {

namespace {

// The parameters that lines tell, by command; the empty one stands for the lines themselves.
using Told = std::map<std::string, std::set<std::string>>;

class OtherRelease {
 public:
  OtherRelease(Exchange& exchange, const std::string& release) : exchange_(exchange), own_(exchange.release()) {
    exchange_.ActAs(release);
  }
  ~OtherRelease() { exchange_.ActAs(own_); }
  OtherRelease(const OtherRelease&) = delete;
  OtherRelease& operator=(const OtherRelease&) = delete;

 private:
  Exchange& exchange_;
  const std::string own_;
};

Told ToldBy(Exchange& exchange, const std::string& release) {
  const OtherRelease other(exchange, release);
  Session session(exchange);
  Told told;
  for (const GeneratedLine& line : Generate(session).lines) {
    std::set<std::string>& names = told[line.command];
    names.insert("");
    const auto action = ReadableLine(line.text);
    if (!action) continue;
    for (const Assignment& each : action->values) names.insert(each.name);
  }
  return told;
}

// The records that have a value; of one that the table does not have, nothing can be left out.
std::size_t RecordsWithValue(Exchange& exchange, const FormDefinition& form, const std::string& parameter) {
  const Table* table = form.Database().Find(form.table);
  if (table == nullptr || table->Find(parameter) == nullptr) return 0;
  const std::string column = "[" + parameter + "]";
  return static_cast<std::size_t>(ToInt32(exchange.Dynamic().Single("SELECT COUNT(*) FROM " + form.Rows() + " WHERE " +
                                                                    column + " IS NOT NULL AND " + column + " <> ''")));
}

// What the lines of a release leave out of a command, and which releases tell it.
std::map<std::string, std::vector<std::string>> OnlyToldByOthers(const std::map<std::string, Told>& byRelease,
                                                                 const std::string& own, const std::string& command) {
  const auto told = [&](const std::string& release) {
    const auto found = byRelease.at(release).find(command);
    return found == byRelease.at(release).end() ? std::set<std::string>() : found->second;
  };
  const std::set<std::string> ownTold = told(own);
  std::map<std::string, std::vector<std::string>> others;
  for (const std::string& release : Releases()) {
    for (const std::string& parameter : told(release))
      if (!ownTold.contains(parameter)) others[parameter].push_back(release);
  }
  // Without lines nothing is told, and it need not be said of each parameter.
  if (const auto lines = others.find(""); lines != others.end()) return {*lines};
  return others;
}

}  // namespace

std::vector<LeftOut> FindLeftOut(Exchange& exchange) {
  std::map<std::string, Told> byRelease;
  for (const std::string& release : Releases()) byRelease.emplace(release, ToldBy(exchange, release));

  std::vector<LeftOut> found;
  for (const std::string& command : GenerationOrder()) {
    const FormDefinition* form = FindForm(command);
    for (const auto& [parameter, toldBy] : OnlyToldByOthers(byRelease, exchange.release(), command)) {
      const std::size_t records =
          parameter.empty() ? CountRecords(exchange, *form).records : RecordsWithValue(exchange, *form, parameter);
      if (records > 0) found.push_back({command, parameter, records, toldBy});
    }
  }
  return found;
}

}  // namespace cordboard::workbench
