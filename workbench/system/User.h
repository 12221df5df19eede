// Who runs this process.
#pragma once

#include <sys/types.h>
#include <string>

namespace cordboard::workbench {

// The name of a user, or "user 4711" where the system has none.
std::string NameOfUser(uid_t user);
std::string CurrentUser();

}  // namespace cordboard::workbench
