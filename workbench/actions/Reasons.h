// Why a value is refused, as far as the exchange can tell: there is no such thing, or a record has it. Costs some
// look-ups, and is asked when a value has been refused.
#pragma once

#include <string>
#include <vector>

#include "workbench/actions/Filling.h"
#include "workbench/exchange/References.h"

namespace cordboard::workbench {

// "300 is used by the key extension DIR=300 (KSEXI); no series holds 999". Nothing where nothing can be told.
std::string WhyRefused(Filling& filling, const std::string& parameter, const std::vector<std::string>& values);
// What the library has reported, as problems of a parameter where the message names one, with the reason where it is
// about values that are used or not there.
std::vector<Problem> Explained(Filling& filling, const std::vector<ReportedMessage>& messages);
// A thing that a record is, and who names it.
struct Naming {
  const Thing* thing;
  std::string value;
  std::vector<Holder> holders;
};
// Who names the record that the form shows: of each column the first `most`. Things that nobody names are left out.
std::vector<Naming> NamedBy(Exchange& exchange, const FormDefinition& definition, const Form& form, std::size_t most);
// Which records name the one that could not be deleted; nothing where none does.
std::string WhoNames(Exchange& exchange, const FormDefinition& definition, const Form& form);

}  // namespace cordboard::workbench
