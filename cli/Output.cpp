#include "cli/Output.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string_view>
#include <utility>

#include "script/Conversions.h"
#include "script/Text.h"
#include "workbench/text/Escaped.h"

namespace cordboard::cli {

namespace {

// How messages are told, and what --json makes of them. A program has one document.
struct Document {
  bool gathers = false;
  bool printed = false;
  bool listing = false;  // a list is open
  bool listed = false;   // and has an element
  bool tellsCauses = false;
  std::string place = {};  // of what is told without one
  nlohmann::json problems = nlohmann::json::array();
};

Document& TheDocument() {
  static Document document;
  return document;
}

std::string_view Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

bool Coloured() {
  static const bool coloured =
      isatty(STDERR_FILENO) == 1 && Environment("NO_COLOR").empty() && Environment("TERM") != "dumb";
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
    std::cerr << severity.colour << label << "\033[0m: " << workbench::Escaped(text) << '\n';
  } else {
    std::cerr << label << ": " << workbench::Escaped(text) << '\n';
  }
}

std::string AtPlace(const std::string& text) {
  return TheDocument().place.empty() ? text : TheDocument().place + ": " + text;
}

std::string Written(const Place& place, const workbench::Problem& problem) {
  std::string text = place.file.empty() ? TheDocument().place : place.file;
  if (place.line > 0) text += ":" + std::to_string(place.line);
  if (!text.empty()) text += ": ";
  std::string where = place.command;
  if (!problem.parameter.empty()) where += (where.empty() ? "" : ", ") + problem.parameter;
  if (!problem.parameter.empty() && !problem.value.empty()) where += "=" + problem.value;
  text += (where.empty() ? "" : where + ": ") + InWords(problem);
  if (TheDocument().tellsCauses && !problem.cause.empty()) text += " [" + problem.cause + "]";
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
  add("reason", problem.reason);
  if (const auto& possible = problem.possible) {
    json["possible"] = possible->values;
    if (possible->total) json["total"] = *possible->total;
    if (possible->numbers) json["numbers"] = {{"from", possible->numbers->from}, {"to", possible->numbers->to}};
  }
  if (TheDocument().tellsCauses) add("cause", problem.cause);
  return json;
}

// The layout of JSON has no control characters but line ends, and of those in its texts some are not escaped.
std::string Dumped(const nlohmann::json& data, const std::string& indentation = "") {
  std::istringstream lines(data.dump(2, ' ', false, nlohmann::json::error_handler_t::replace));
  std::string text;
  for (std::string line; std::getline(lines, line);)
    text += (text.empty() ? "" : "\n") + indentation + workbench::Escaped(line);
  return text;
}

void EndList() {
  const nlohmann::json problems = std::exchange(TheDocument().problems, nlohmann::json::array());
  TheDocument().printed = true;
  std::cout << (TheDocument().listed ? "\n  " : "") << "],\n  \"problems\": " << TrimLeftBlanks(Dumped(problems, "  "))
            << "\n}\n";
}

}  // namespace

void GatherMessages() { TheDocument().gathers = true; }
void TellOnStandardError() { TheDocument().gathers = false; }

MessagesAt::MessagesAt(std::string place) : before_(std::exchange(TheDocument().place, std::move(place))) {}
MessagesAt::~MessagesAt() { TheDocument().place = before_; }

void TellCauses() { TheDocument().tellsCauses = true; }

void Note(const std::string& label, const std::string& text) { Tell(note, label, text, {{"message", text}}); }
void Error(const std::string& text) { Tell(error, error.name, AtPlace(text), {{"message", text}}); }
void Warning(const std::string& text) { Tell(warning, warning.name, AtPlace(text), {{"message", text}}); }

void Error(const Place& place, const workbench::Problem& problem) {
  Tell(error, error.name, Written(place, problem), ToJson(place, problem));
}

void Warning(const Place& place, const workbench::Problem& problem) {
  Tell(warning, warning.name, Written(place, problem), ToJson(place, problem));
}

void Note(const Place& place, const workbench::Problem& problem) {
  Tell(note, note.name, Written(place, problem), ToJson(place, problem));
}

void Debug(const std::vector<std::string>& lines) {
  if (!TheDocument().tellsCauses) return;
  for (const std::string& line : lines) Note("debug", line);
}

void PrintJson(nlohmann::json document) {
  document["problems"] = std::exchange(TheDocument().problems, nlohmann::json::array());
  TheDocument().printed = true;
  std::cout << Dumped(document) << '\n';
}

void PrintProblemsLeft() {
  if (!TheDocument().gathers || TheDocument().printed) return;
  TheDocument().listing ? EndList() : PrintJson(nlohmann::json::object());
}

int FlushOutput() {
  static int first = 0;
  // It may have failed long ago, and what has run since has an error of its own: so it fails once more.
  if (!std::cout.flush() && first == 0) first = write(STDOUT_FILENO, "\n", 1) < 0 ? errno : EIO;
  return first;
}

JsonList::JsonList(const std::string& name) {
  TheDocument().listing = true;
  std::cout << "{\n  " << Dumped(name) << ": [";
}

void JsonList::Add(const nlohmann::json& element) {
  std::cout << (std::exchange(TheDocument().listed, true) ? ",\n" : "\n") << Dumped(element, "    ");
}

void JsonList::End() { EndList(); }

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

std::string Printed(const std::string& text) {
  static const bool terminal = isatty(STDOUT_FILENO) == 1;
  return terminal ? workbench::Escaped(text) : text;
}

Table::Table(const std::vector<std::string>& headings, std::vector<std::size_t> widths) : widths_(std::move(widths)) {
  widths_.resize(headings.size());
  for (std::size_t i = 0; i < headings.size(); ++i) widths_[i] = std::max(widths_[i], Length(headings[i]));
  Print(headings);
}

void Table::Print(const std::vector<std::string>& cells) const {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const std::string cell = Printed(cells[i]);
    line += cell;
    // A cell that has grown since the widths were taken, or by escapes, keeps its distance all the same.
    if (i + 1 < cells.size()) line += std::string(std::max(widths_[i], Length(cell)) - Length(cell) + 2, ' ');
  }
  std::cout << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
}

void PrintTable(const std::vector<std::string>& headings, const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> widths(headings.size());
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], Length(row[i]));
  }
  const Table table(headings, widths);
  for (const auto& row : rows) table.Print(row);
}

}  // namespace cordboard::cli
