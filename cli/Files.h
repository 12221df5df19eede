// The files, commands and values that the command line names.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/Subcommands.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::cli {

// An exchange as a user names it: office.cbx, or office.cbx@12 for how it stood at state 12 of its history. A file that
// has the whole name goes first.
struct ExchangeName {
  std::string file;
  std::optional<int> state = {};  // nothing: as it stands now
};
ExchangeName ParseExchangeName(const std::string& text);

// Opens an exchange, as a copy that may be changed, or to write it; a missing file ends the subcommand with NotFound.
// A copy may be of a state of the past. A file that another process holds is waited for so many seconds.
std::unique_ptr<workbench::Exchange> OpenToRead(const std::string& name);
std::unique_ptr<workbench::Exchange> OpenToWrite(const std::string& file, unsigned wait = usualWait);

// Warns where others can read a file that holds the secrets of the exchange: its own, or one with its lines. Gives
// whether it did.
bool WarnOfReaders(workbench::Exchange& exchange, const std::string& file);

// Lines of an exchange go to a file that its owner alone can read, and never over an exchange.
void CheckOutput(const std::string& exchange, const std::string& output);
void WriteOutput(const std::string& output, const std::string& lines);

// Tells all that is wrong with a plant.
void Report(const workbench::PlantError& error);

// The form of a command; an unknown one ends the subcommand with NotFound and the nearest name.
const workbench::FormDefinition& FormOf(const std::string& command);

// What is given as NAME=VALUE; anything else ends the subcommand with Usage.
std::vector<workbench::Assignment> AssignmentsOf(const std::vector<std::string>& texts);

}  // namespace cordboard::cli
