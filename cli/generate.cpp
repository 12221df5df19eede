// cordboard generate: the exchange's command lines.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/actions/Generation.h"

namespace cordboard::cli {

namespace {

void Write(const workbench::Generated& generated, std::ostream& out) {
  for (const workbench::GeneratedLine& line : generated.lines) out << line.text << '\n';
}

}  // namespace

int Generate(const GenerateOptions& options) {
  const auto exchange = OpenExchange(options.file);
  std::error_code ignored;
  if (std::filesystem::equivalent(options.file, options.output, ignored))
    throw Exit{Usage, "the lines cannot be written over the exchange itself"};
  workbench::Session session(*exchange);
  const workbench::Generated generated = workbench::Generate(session, options.templates ? "site" : "dynamic");
  for (const auto& [command, problem] : generated.problems) Error(Written(command, problem));
  if (options.json) {
    nlohmann::json data = nlohmann::json::array();
    for (const auto& line : generated.lines) data.push_back({{"command", line.command}, {"line", line.text}});
    PrintJson(data);
  } else if (options.output.empty()) {
    Write(generated, std::cout);
  } else {
    std::ofstream out(options.output, std::ios::binary);
    Write(generated, out);
    out.close();
    if (!out) throw Exit{Trouble, "the lines cannot be written to " + options.output};
    Note("lines", std::to_string(generated.lines.size()) + " written to " + options.output);
  }
  return generated.problems.empty() ? Done : Refused;
}

}  // namespace cordboard::cli
