// What is typed at a shell, which may go on over several rows.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace cordboard::cli::shell {

// Whether a text is a line of a plan, which begins with capitals or with "edit" or "delete". All else that begins with
// a small letter is a word of the shell.
bool IsLine(std::string_view text);

// A text that was whole, in rows that make it again.
std::string RowsOf(const std::string& text);

// What is typed, row by row.
class Typed {
 public:
  // Takes a row and gives whether what is typed is whole now. A row that ends in a backslash goes on in the next, and
  // so does a line without its semicolon; blank rows and comments are passed over. A backslash behind a line that is
  // whole joins the next line to it, and the text is a plan of both.
  bool Add(std::string_view row);

  const std::string& text() const { return text_; }
  // The line that is typed now, with a row that is not taken yet.
  std::string LineWith(std::string_view row) const;
  bool IsBegun() const { return rows_ > 0; }
  std::size_t rows() const { return rows_; }

 private:
  bool IsWhole() const;

  std::string text_;
  std::string between_;       // what stands between the text and the next row
  std::size_t rows_ = 0;      // that hold something
  std::size_t lastLine_ = 0;  // where the last line of the text begins
};

}  // namespace cordboard::cli::shell
