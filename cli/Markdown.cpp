#include "cli/Markdown.h"

#include <regex>
#include <sstream>
#include <utility>
#include <vector>

#include "cli/Version.h"

namespace cordboard::cli {

namespace {

// The formatter of manual pages gives these a meaning of their own.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '\\') {
      escaped += "\\e";
    } else if (c == '-') {
      escaped += "\\-";
    } else {
      escaped += c;
    }
  }
  if (text.starts_with('.') || text.starts_with('\'')) escaped.insert(0, "\\&");
  return escaped;
}

// Text as it is read: typed and weighty words in bold.
std::string Running(const std::string& markdown) {
  static const std::regex link(R"(\[([^\]]*)\]\([^)]*\))");
  static const std::regex bold(R"(`([^`]*)`|\*\*([^*]*)\*\*)");
  return std::regex_replace(Escaped(std::regex_replace(markdown, link, "$1")), bold, "\\fB$1$2\\fR");
}

std::string WithoutBlanks(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == text.npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The cells of "| one | two |".
std::vector<std::string> Cells(const std::string& row) {
  std::vector<std::string> cells;
  std::istringstream in(row.substr(1));
  for (std::string cell; std::getline(in, cell, '|');) cells.push_back(WithoutBlanks(cell));
  return cells;
}

std::string Item(const std::string& row) {
  const std::vector<std::string> cells = Cells(row);
  std::string others;
  for (std::size_t i = 1; i < cells.size(); ++i) {
    if (!cells[i].empty()) others += (others.empty() ? "" : "; ") + cells[i];
  }
  return ".TP\n" + Running(cells.at(0)) + '\n' + (others.empty() ? "\\&" : Running(others)) + '\n';
}

// Reads a page line by line. Indented lines stand between .nf and .fi.
class ManualPage {
 public:
  ManualPage(std::string name, int section) : name_(std::move(name)), section_(section) {}

  std::string Of(std::string_view markdown) {
    std::istringstream in{std::string(markdown)};
    for (std::string line; std::getline(in, line);) Line(line);
    EndExample();
    return page_;
  }

 private:
  void Line(const std::string& line) {
    const bool indented = line.starts_with("    ");
    if (!indented) EndExample();
    if (line.empty()) {
      wasBlank_ = hasText_;
    } else if (line.starts_with("# ")) {
      Head(line.substr(2));
    } else if (line.starts_with("## ")) {
      Section(Running(line.substr(3)));
    } else if (!line.starts_with("| ---")) {
      if (!inSection_) Section("DESCRIPTION");
      Text(line, indented);
      hasText_ = true;
      wasBlank_ = false;
    }
  }

  void Text(const std::string& line, bool indented) {
    if (line.starts_with("| ")) {
      page_ += Item(line);
    } else if (line.starts_with("- ")) {
      page_ += ".IP \\(bu 2\n" + Running(line.substr(2)) + '\n';
    } else if (indented) {
      BeginExample();
      page_ += Escaped(line.substr(4)) + '\n';
    } else {
      if (wasBlank_) page_ += ".PP\n";
      page_ += Running(WithoutBlanks(line)) + '\n';
    }
  }

  // A page without a heading of its own before its text has its description there.
  void Section(const std::string& heading) {
    page_ += ".SH " + heading + '\n';
    inSection_ = true;
    hasText_ = false;
    wasBlank_ = false;
  }

  void Head(const std::string& heading) {
    const std::size_t colon = heading.find(": ");
    page_ += ".TH \"" + Escaped(name_) + "\" " + std::to_string(section_) + " \"\" \"cordboard " + Version() +
             "\" \"Cordboard\"\n.SH NAME\n" + Escaped(name_) + " \\- " + Running(heading.substr(colon + 2)) + '\n';
  }

  void BeginExample() {
    if (!std::exchange(inExample_, true)) page_ += (wasBlank_ ? ".PP\n" : "") + std::string(".RS 4\n.nf\n");
  }
  void EndExample() {
    if (std::exchange(inExample_, false)) page_ += ".fi\n.RE\n";
  }

  std::string name_;
  int section_;
  std::string page_;
  bool inSection_ = false;
  bool hasText_ = false;   // in the section
  bool wasBlank_ = false;  // after text, so that a paragraph begins
  bool inExample_ = false;
};

}  // namespace

std::string AsText(std::string_view markdown) {
  static const std::regex marks(R"(`([^`]*)`|\*\*([^*]*)\*\*|\[([^\]]*)\]\([^)]*\))");
  return std::regex_replace(std::string(markdown), marks, "$1$2$3");
}

std::string AsManualPage(std::string_view markdown, const std::string& name, int section) {
  return ManualPage(name, section).Of(markdown);
}

}  // namespace cordboard::cli
