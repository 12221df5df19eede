#include "cli/Output.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <nlohmann/json.hpp>

#include "script/Conversions.h"
#include "script/Text.h"

namespace cordboard::cli {

namespace {

bool Coloured() {
  const char* refused = std::getenv("NO_COLOR");
  static const bool coloured = isatty(STDERR_FILENO) == 1 && (refused == nullptr || *refused == '\0');
  return coloured;
}

void NoteIn(const char* colour, const std::string& label, const std::string& text) {
  if (Coloured()) {
    std::cerr << colour << label << "\033[0m: " << text << '\n';
  } else {
    std::cerr << label << ": " << text << '\n';
  }
}

}  // namespace

void Note(const std::string& label, const std::string& text) { NoteIn("\033[36m", label, text); }
void Error(const std::string& text) { NoteIn("\033[31m", "error", text); }
void Warning(const std::string& text) { NoteIn("\033[33m", "warning", text); }

std::string Written(const std::string& command, const workbench::Problem& problem) {
  std::string where = command;
  if (!problem.parameter.empty()) where += (where.empty() ? "" : ", ") + problem.parameter;
  if (!problem.parameter.empty() && !problem.value.empty()) where += "=" + problem.value;
  std::string text = (where.empty() ? "" : where + ": ") + problem.message;
  if (!problem.allowed.empty()) text += (text.ends_with('.') ? " " : ". ") + ("Possible: " + problem.allowed);
  return text;
}

void PrintJson(const nlohmann::json& data) {
  std::cout << data.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

nlohmann::json ToJson(const workbench::Problem& problem) {
  nlohmann::json json{{"message", problem.message}};
  if (!problem.parameter.empty()) json["parameter"] = problem.parameter;
  if (!problem.value.empty()) json["value"] = problem.value;
  if (!problem.allowed.empty()) json["possible"] = problem.allowed;
  return json;
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
