// The notation of transcripts, read: the texts that script/TracingHost.h writes, back into values. Whatever cannot be
// read is a TranscriptError, which knows its file and line.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "script/List.h"
#include "script/Value.h"

namespace cordboard {

// Where a line stands.
struct Place {
  std::string file;
  int line = 0;

  std::string Text() const { return file + ":" + std::to_string(line); }
};

class TranscriptError : public std::runtime_error {
 public:
  TranscriptError(const Place& place, const std::string& what) : std::runtime_error(place.Text() + ": " + what) {}
};

// Empty, Null, True, False, 12.5, "a text"; {NL} in a text is CR LF, {LF} a line feed, {QT} a double
// quote.
Value ReadValue(std::string_view text, const Place& place);
// Empty, Null, ["100", "101"], [].
List ReadList(std::string_view text, const Place& place);
// By column, [["100", "101"], ["EX", Null]]; "no rows" or Empty.
RowSet ReadRows(std::string_view text, const Place& place);

std::string_view Trimmed(std::string_view text);
// The place of a piece outside of quotes and brackets, or npos.
std::size_t FindOutside(std::string_view text, std::string_view piece, std::size_t from = 0);
// The parts between separators that stand outside of quotes and brackets, trimmed; none in a blank text.
std::vector<std::string> Parts(std::string_view text, char separator);
// How many brackets of a line stay open at its end; quotes do not go beyond a line.
int OpenBrackets(std::string_view line, const Place& place);

}  // namespace cordboard
