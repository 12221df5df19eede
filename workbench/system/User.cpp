#include "workbench/system/User.h"

#include <pwd.h>
#include <unistd.h>

namespace cordboard::workbench {

std::string NameOfUser(uid_t user) {
  const passwd* found = getpwuid(user);
  return found != nullptr ? found->pw_name : "user " + std::to_string(user);
}

std::string CurrentUser() { return NameOfUser(getuid()); }

}  // namespace cordboard::workbench
