#include "support/TranscriptLines.h"

#include <sstream>

namespace cordboard {

namespace {

bool EndsInText(const std::string& line) { return line.ends_with("\" +"); }

// Two texts joined by "+" are one.
void Join(std::string& line, std::string_view next) {
  if (EndsInText(line) && next.starts_with('"')) {
    line.resize(line.size() - 3);
    line += next.substr(1);
    return;
  }
  if (line.ends_with(" +")) line.resize(line.size() - 2);
  const bool tight = line.ends_with('(') || line.ends_with('[') || next.starts_with(')') || next.starts_with(']');
  line += (tight ? "" : " ") + std::string(next);
}

}  // namespace

std::vector<TranscriptLine> TranscriptLinesOf(const std::string& file, const std::string& text) {
  std::vector<TranscriptLine> lines;
  std::istringstream in(text);
  bool open = false;
  Place place{file, 0};
  for (std::string line; std::getline(in, line);) {
    ++place.line;
    const std::string_view trimmed = Trimmed(line);
    if (trimmed.empty() || trimmed.starts_with('#')) continue;
    if (open) {
      Join(lines.back().text, trimmed);
    } else {
      lines.push_back({std::string(trimmed), line.front() == ' ' || line.front() == '\t', place});
    }
    const std::string& whole = lines.back().text;
    // A title and a reason are plain words.
    const bool plain = whole.starts_with("===") || whole.starts_with("silence ") ||
                       whole.starts_with("leaves-behind ") || whole.starts_with("nests ");
    open = !plain && (OpenBrackets(whole, lines.back().place) > 0 || whole.ends_with(" +"));
  }
  if (open) throw TranscriptError(lines.back().place, "the file ends in the middle of this line");
  return lines;
}

}  // namespace cordboard
