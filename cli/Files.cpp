#include "cli/Files.h"

#include <filesystem>
#include <fstream>
#include <string_view>

#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/actions/Records.h"
#include "workbench/forms/Unknown.h"
#include "workbench/plans/PlanLine.h"
#include "workbench/system/SystemMessage.h"
#include "workbench/system/WholeFile.h"

namespace cordboard::cli {

namespace {

void CheckThere(const std::string& file) {
  if (!std::filesystem::exists(file)) throw Exit{NotFound, "there is no file " + file};
}

}  // namespace

ExchangeName ParseExchangeName(const std::string& text) {
  const std::size_t at = text.rfind('@');
  const std::string number = at == text.npos ? "" : text.substr(at + 1);
  const bool isNumber = !number.empty() && number.size() <= 9 && number.find_first_not_of("0123456789") == text.npos;
  if (at == 0 || !isNumber || std::filesystem::exists(text)) return {text};
  return {text.substr(0, at), std::stoi(number)};
}

std::unique_ptr<workbench::Exchange> OpenToRead(const std::string& name) {
  const auto [file, state] = ParseExchangeName(name);
  CheckThere(file);
  return state ? workbench::Exchange::OpenAsOf(file, *state) : workbench::Exchange::OpenForReading(file);
}

std::unique_ptr<workbench::Exchange> OpenToWrite(const std::string& file, unsigned wait) {
  if (const auto name = ParseExchangeName(file); name.state)
    throw Exit{Usage, file + " is " + name.file + " as it stood at a state of the past, which cannot be written"};
  CheckThere(file);
  return workbench::Exchange::OpenForWriting(file, std::chrono::seconds(wait));
}

bool WarnOfReaders(workbench::Exchange& exchange, const std::string& name) {
  using std::filesystem::perms;
  const std::string file = ParseExchangeName(name).file;
  const std::filesystem::file_status status = std::filesystem::status(file);
  const bool readable = (status.permissions() & (perms::group_read | perms::others_read)) != perms::none;
  if (!std::filesystem::is_regular_file(status) || !readable || !workbench::HoldsSecrets(exchange)) return false;
  Warning("others can read " + file + ", which holds passwords: chmod 600 " + file);
  return true;
}

void CheckOutput(const std::string& exchange, const std::string& output) {
  std::error_code ignored;
  if (std::filesystem::equivalent(ParseExchangeName(exchange).file, output, ignored))
    throw Exit{Usage, "the lines cannot be written over the exchange itself"};
  constexpr std::string_view beginning = "SQLite format 3";
  std::string head(beginning.size(), ' ');
  if (std::ifstream(output, std::ios::binary).read(head.data(), static_cast<std::streamsize>(head.size())) &&
      head == beginning)
    throw Exit{Usage, "the lines are not written over " + output + ", which is an exchange"};
}

void WriteOutput(const std::string& output, const std::string& lines) try {
  workbench::WriteWholeFile(output, lines, workbench::Existing::Replaced);
} catch (const std::filesystem::filesystem_error& error) {
  throw Exit{Trouble,
             "the lines cannot be written to " + output + ": " + workbench::SystemMessage(error.code().value())};
}

void Report(const workbench::PlantError& error) {
  for (const auto& [file, message] : error.problems()) Error({.file = file}, {.message = message});
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
      throw Exit{Usage, "value " + std::to_string(assignments.size() + 1) + " " + error.what()};
    }
  }
  return assignments;
}

}  // namespace cordboard::cli
