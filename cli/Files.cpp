#include "cli/Files.h"

#include "cli/Subcommands.h"
#include "workbench/forms/Unknown.h"
#include "workbench/plans/PlanLine.h"

namespace cordboard::cli {

std::unique_ptr<workbench::Exchange> OpenExchange(const std::string& file) {
  if (!std::filesystem::exists(file)) throw Exit{NotFound, "there is no file " + file};
  return workbench::Exchange::Open(file);
}

std::unique_ptr<workbench::Exchange> OpenToWrite(const std::string& file) {
  auto exchange = OpenExchange(file);
  if (exchange->IsReadOnly()) throw Exit{Trouble, file + " may not be written"};
  return exchange;
}

const workbench::FormDefinition& FormOf(const std::string& command) {
  if (const workbench::FormDefinition* form = workbench::FindForm(command)) return *form;
  throw Exit{NotFound, workbench::UnknownCommand(command)};
}

std::vector<workbench::Assignment> AssignmentsOf(const std::vector<std::string>& texts) {
  std::vector<workbench::Assignment> assignments;
  for (const std::string& text : texts) {
    try {
      assignments.push_back(workbench::ParseAssignment(text));
    } catch (const workbench::PlanLineError& error) {
      throw Exit{Usage, error.what()};
    }
  }
  return assignments;
}

}  // namespace cordboard::cli
