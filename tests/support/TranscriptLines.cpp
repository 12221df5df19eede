#include "support/TranscriptLines.h"

#include <sstream>

namespace cordboard {

namespace {

bool EndsWithPlus(std::string_view line) { return line.ends_with(" +"); }
bool EndsWithStroke(std::string_view line) { return line.ends_with(" \\"); }

void Join(std::string& line, std::string_view next, const Place& place) {
  if (EndsWithPlus(line)) {
    if (!line.ends_with("\" +") || !next.starts_with('"'))
      throw TranscriptError(place, "a plus at the end of a line joins two texts");
    line.resize(line.size() - 3);
    line += next.substr(1);
    return;
  }
  if (EndsWithStroke(line)) line.resize(line.size() - 2);
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
      Join(lines.back().text, trimmed, place);
    } else {
      lines.push_back({std::string(trimmed), line.front() == ' ' || line.front() == '\t', place});
    }
    const std::string& whole = lines.back().text;
    // A title and a reason are plain words.
    const bool plain = whole.starts_with("===") || whole.starts_with("silence ") ||
                       whole.starts_with("leaves-behind ") || whole.starts_with("nests ");
    open = !plain && (OpenBrackets(whole, lines.back().place) > 0 || EndsWithPlus(whole) || EndsWithStroke(whole));
  }
  if (open) throw TranscriptError(lines.back().place, "the file ends in the middle of this line");
  return lines;
}

}  // namespace cordboard
