// Rows that are typed at a terminal, with editing, what was typed before, and completion.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "cli/shell/Completion.h"
#include "cli/shell/Input.h"
#include "cli/shell/RecentLines.h"

struct editline;
struct history;

namespace cordboard::cli::shell {

class LineEditor : public Input {
 public:
  // Answers to Tab, behind what is typed in this row.
  using AtTab = std::function<Completed(const std::string& typed, const Room& room)>;

  explicit LineEditor(AtTab atTab);
  ~LineEditor() override;

  std::optional<std::string> Next(const std::string& prompt) override;
  void Remember(const std::string& text) override;
  std::size_t Columns() const override;

 private:
  // What the editor calls.
  static char* Prompt(editline* editor);
  static int Read(editline* editor, wchar_t* character);
  static unsigned char Complete(editline* editor, int key);

  AtTab atTab_;
  RecentLines recent_;
  std::string prompt_;
  struct End {
    void operator()(editline* editor) const;
    void operator()(struct history* lines) const;
  };
  std::unique_ptr<struct history, End> history_;
  std::unique_ptr<editline, End> editor_;
};

}  // namespace cordboard::cli::shell
