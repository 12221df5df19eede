// Where what is typed at a shell comes from.
#pragma once

#include <optional>
#include <string>

#include "cli/PlanStream.h"

namespace cordboard::cli::shell {

class Input {
 public:
  virtual ~Input() = default;

  // The next row without its end; nothing behind the last. Fails with Interrupted where a signal waits.
  virtual std::optional<std::string> Next(const std::string& prompt) = 0;
  // What was typed, to be brought again by who types there.
  virtual void Remember(const std::string& text) = 0;
  // The columns of the terminal; 0 where there is none.
  virtual std::size_t Columns() const = 0;
};

// Standard input where it is a file or a pipe.
class PipedInput : public Input {
 public:
  std::optional<std::string> Next(const std::string& prompt) override;
  void Remember(const std::string&) override {}
  std::size_t Columns() const override { return 0; }

 private:
  PlanStream in_{OpenPlan("-")};
  bool isFirst_ = true;
};

}  // namespace cordboard::cli::shell
