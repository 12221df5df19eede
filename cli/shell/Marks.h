// Marks under the places of a line that is refused.
#pragma once

#include <string>
#include <vector>

#include "workbench/actions/UserAction.h"
#include "workbench/plans/PlanLine.h"

namespace cordboard::cli::shell {

// Where in the line stands what the problems are about, as far as that is known: the values that are refused, a command
// that there is not, or the place at which the line cannot be read.
std::vector<workbench::Stretch> PlacesOf(const std::string& line, const std::vector<workbench::Problem>& problems);

// A row of marks that stands under the row in which the line was typed, behind a prompt so wide.
std::string MarksUnder(std::size_t prompt, const std::vector<workbench::Stretch>& places);

// Two rows, no wider than the terminal: what of the line stands around the first place, and the mark under it.
std::string Excerpt(const std::string& line, const workbench::Stretch& place, std::size_t columns);

// Whether the texts that a line holds may be told: it can be read, its command has all parameters that it names, and
// none is a secret.
bool MayBeTold(const std::string& line);

}  // namespace cordboard::cli::shell
