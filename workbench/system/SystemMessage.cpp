#include "workbench/system/SystemMessage.h"

#include <cerrno>
#include <system_error>

namespace cordboard::workbench {

std::string SystemMessage(int error) {
  switch (error) {
    case ENOSPC: return "the disk is full";
    case EDQUOT: return "the disk is full: the quota is used up";
    case EFBIG: return "the disk is full: no file may grow larger here";
    default: return std::generic_category().message(error);
  }
}

}  // namespace cordboard::workbench
