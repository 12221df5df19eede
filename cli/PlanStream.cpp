#include "cli/PlanStream.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "cli/Subcommands.h"
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

int OpenPlan(const std::string& plan) {
  if (plan == "-") return STDIN_FILENO;
  if (!std::filesystem::exists(plan)) throw Exit{NotFound, "there is no plan file " + plan};
  const int file = std::filesystem::is_directory(plan) ? -1 : open(plan.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) throw Exit{Trouble, "the plan file " + plan + " cannot be read"};
  return file;
}

}  // namespace cordboard::cli
