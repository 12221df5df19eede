// What an error of the system means for a user.
#pragma once

#include <string>

namespace cordboard::workbench {

// Of an errno: "the disk is full".
std::string SystemMessage(int error);

}  // namespace cordboard::workbench
