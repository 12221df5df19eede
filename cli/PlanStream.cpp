#include "cli/PlanStream.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "workbench/system/Signals.h"

namespace cordboard::cli {

PlanStream::Buffer::~Buffer() {
  if (file_ != STDIN_FILENO) close(file_);
}

PlanStream::Buffer::int_type PlanStream::Buffer::underflow() {
  if (!workbench::WaitForInput(file_)) return traits_type::eof();
  const ssize_t size = ::read(file_, read_.data(), read_.size());
  // A stream makes this its badbit.
  if (size < 0) throw std::system_error(errno, std::generic_category());
  if (size == 0) return traits_type::eof();
  setg(read_.data(), read_.data(), read_.data() + size);
  return traits_type::to_int_type(*gptr());
}

}  // namespace cordboard::cli
