#include "cli/Output.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <nlohmann/json.hpp>
#include <utility>

#include "script/Conversions.h"
#include "script/Text.h"

namespace cordboard::cli {

namespace {

// What --json makes of messages. A program has one document.
struct Document {
  bool gathers = false;
  bool printed = false;
  nlohmann::json problems = nlohmann::json::array();
};

Document& TheDocument() {
  static Document document;
  return document;
}

bool Coloured() {
  const char* refused = std::getenv("NO_COLOR");
  static const bool coloured = isatty(STDERR_FILENO) == 1 && (refused == nullptr || *refused == '\0');
  return coloured;
}

struct Severity {
  const char* name;
  const char* colour;
};
constexpr Severity error{"error", "\033[31m"};
constexpr Severity warning{"warning", "\033[33m"};
constexpr Severity note{"note", "\033[36m"};

void Tell(const Severity& severity, const std::string& label, const std::string& text, nlohmann::json problem) {
  if (TheDocument().gathers) {
    problem["severity"] = severity.name;
    TheDocument().problems.push_back(std::move(problem));
  } else if (Coloured()) {
    std::cerr << severity.colour << label << "\033[0m: " << text << '\n';
  } else {
    std::cerr << label << ": " << text << '\n';
  }
}

std::string Written(const Place& place, const workbench::Problem& problem) {
  std::string text = place.file.empty() ? "" : place.file + ":" + std::to_string(place.line) + ": ";
  std::string where = place.command;
  if (!problem.parameter.empty()) where += (where.empty() ? "" : ", ") + problem.parameter;
  if (!problem.parameter.empty() && !problem.value.empty()) where += "=" + problem.value;
  text += (where.empty() ? "" : where + ": ") + problem.message;
  if (problem.possible) text += (text.ends_with('.') ? " " : ". ") + ("Possible: " + InWords(*problem.possible));
  return text;
}

nlohmann::json ToJson(const Place& place, const workbench::Problem& problem) {
  nlohmann::json json{{"message", problem.message}};
  const auto add = [&json](const char* name, const std::string& text) {
    if (!text.empty()) json[name] = text;
  };
  add("file", place.file);
  if (place.line > 0) json["line"] = place.line;
  add("command", place.command);
  add("parameter", problem.parameter);
  add("value", problem.value);
  if (const auto& possible = problem.possible) {
    json["possible"] = possible->values;
    if (possible->total) json["total"] = *possible->total;
    if (possible->numbers) json["numbers"] = {{"from", possible->numbers->from}, {"to", possible->numbers->to}};
  }
  return json;
}

}  // namespace

void GatherMessages() { TheDocument().gathers = true; }
void TellOnStandardError() { TheDocument().gathers = false; }

void Note(const std::string& label, const std::string& text) { Tell(note, label, text, {{"message", text}}); }
void Error(const std::string& text) { Tell(error, error.name, text, {{"message", text}}); }
void Warning(const std::string& text) { Tell(warning, warning.name, text, {{"message", text}}); }

void Error(const Place& place, const workbench::Problem& problem) {
  Tell(error, error.name, Written(place, problem), ToJson(place, problem));
}

void Warning(const Place& place, const workbench::Problem& problem) {
  Tell(warning, warning.name, Written(place, problem), ToJson(place, problem));
}

void PrintJson(nlohmann::json document) {
  document["problems"] = std::exchange(TheDocument().problems, nlohmann::json::array());
  TheDocument().printed = true;
  std::cout << document.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

void PrintProblemsAlone() {
  if (TheDocument().gathers && !TheDocument().printed) PrintJson(nlohmann::json::object());
}

nlohmann::json ToJson(const Value& value) {
  switch (value.kind()) {
    case Value::Kind::Text: return value.text();
    case Value::Kind::Truth: return value.truth();
    case Value::Kind::Number: {
      const auto whole = static_cast<long long>(value.number());
      if (static_cast<double>(whole) == value.number()) return whole;
      return value.number();
    }
    default: return nullptr;
  }
}

void PrintTable(const std::vector<std::string>& headings, const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> widths(headings.size());
  std::ranges::transform(headings, widths.begin(), Length);
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], Length(row[i]));
  }
  const auto print = [&widths](const std::vector<std::string>& cells) {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      line += cells[i];
      if (i + 1 < cells.size()) line += std::string(widths[i] - Length(cells[i]) + 2, ' ');
    }
    std::cout << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
  };
  print(headings);
  for (const auto& row : rows) print(row);
}

}  // namespace cordboard::cli
