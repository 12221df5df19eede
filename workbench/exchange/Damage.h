// Whether an exchange is whole.
#pragma once

#include <string>
#include <vector>

namespace cordboard::workbench {

class Exchange;

// What is wrong with the file of an exchange, a sentence each: pages, rows and indexes that do not fit together, and
// tables and indexes that are missing. Nothing where it is whole. Fails with StorageError where it cannot be read to
// its end.
std::vector<std::string> FindDamage(Exchange& exchange);

}  // namespace cordboard::workbench
