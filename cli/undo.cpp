// cordboard undo and cordboard redo: back and forth in the history of an exchange.

#include <nlohmann/json.hpp>

#include "cli/AllOrNothing.h"
#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/StateReport.h"
#include "cli/Subcommands.h"
#include "workbench/history/StateInWords.h"
#include "workbench/history/Undo.h"

namespace cordboard::cli {

namespace {

template <typename Work>
int GoTo(const std::string& file, unsigned wait, bool json, const Work& work) {
  const auto exchange = OpenToWrite(file, wait);
  const workbench::State made = AllOrNothing([&] { return work(exchange->Dynamic()); });
  if (json) {
    PrintJson({{"states", {ToJson(made)}}});
  } else {
    Note("state " + std::to_string(made.number), Told(made));
  }
  return Done;
}

}  // namespace

int Undo(const UndoOptions& options) {
  return GoTo(options.file, options.wait, options.json, [&](workbench::Connection& exchange) {
    return workbench::Undo(exchange, options.state, options.withLater, options.message);
  });
}

int Redo(const RedoOptions& options) {
  return GoTo(options.file, options.wait, options.json,
              [&](workbench::Connection& exchange) { return workbench::Redo(exchange, options.message); });
}

}  // namespace cordboard::cli
