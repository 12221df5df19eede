// The files, commands and values that the command line names.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"
#include "workbench/forms/FormDefinition.h"

namespace cordboard::cli {

// Opens an exchange; a missing file ends the subcommand with NotFound.
std::unique_ptr<workbench::Exchange> OpenExchange(const std::string& file);

// The same for a subcommand that performs actions, be it for a trial: a file that may not be written ends it with
// Trouble.
std::unique_ptr<workbench::Exchange> OpenToWrite(const std::string& file);

// Warns where others can read a file that holds the secrets of the exchange: its own, or one with its lines. Gives
// whether it did.
bool WarnOfReaders(workbench::Exchange& exchange, const std::string& file);

// Tells all that is wrong with a plant.
void Report(const workbench::PlantError& error);

// The form of a command; an unknown one ends the subcommand with NotFound and the nearest name.
const workbench::FormDefinition& FormOf(const std::string& command);

// What is given as NAME=VALUE; anything else ends the subcommand with Usage.
std::vector<workbench::Assignment> AssignmentsOf(const std::vector<std::string>& texts);

}  // namespace cordboard::cli
