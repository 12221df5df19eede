// What is told of work that fails, and with which exit code.
#pragma once

#include <functional>

namespace cordboard::cli {

// Does the work and gives its exit code. Where it ends with an exception, that is told as an error.
int TellFailure(const std::function<int()>& work);

}  // namespace cordboard::cli
