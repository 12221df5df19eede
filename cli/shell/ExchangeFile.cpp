#include "cli/shell/ExchangeFile.h"

#include <filesystem>

#include "cli/Files.h"
#include "cli/Subcommands.h"
#include "workbench/text/Escaped.h"

namespace cordboard::cli::shell {

ExchangeFile::ExchangeFile(std::string name, bool readOnly, unsigned wait)
    : name_(std::move(name)), readOnly_(readOnly || ParseExchangeName(name_).state), wait_(wait) {}

std::string ExchangeFile::ShortName() const {
  const auto [file, state] = ParseExchangeName(name_);
  const std::string stem = std::filesystem::path(file).stem().string();
  return workbench::Escaped(state ? stem + "@" + std::to_string(*state) : stem);
}

workbench::Exchange& ExchangeFile::Look() {
  const Stand now = Now();
  if (!copy_ || now != copied_) {
    copy_.reset();  // before the next one, so that there are never two
    copy_ = Copy();
    copied_ = now;
  }
  return *copy_;
}

std::unique_ptr<workbench::Exchange> ExchangeFile::Copy() const { return OpenToRead(name_); }

std::unique_ptr<workbench::Exchange> ExchangeFile::ToWrite() const {
  if (readOnly_) throw Exit{Refused, "nothing is kept in this shell, which only reads; try begins a trial of lines"};
  return OpenToWrite(name_, wait_);
}

void ExchangeFile::WarnOfReaders(workbench::Exchange& exchange) {
  warned_ = warned_ || cli::WarnOfReaders(exchange, name_);
}

// A file that there is not is told by who opens it.
ExchangeFile::Stand ExchangeFile::Now() const {
  struct stat status {};
  if (stat(ParseExchangeName(name_).file.c_str(), &status) != 0) return {};
  return {status.st_dev, status.st_ino, status.st_size,
          status.st_mtim.tv_sec * 1'000'000'000LL + status.st_mtim.tv_nsec};
}

}  // namespace cordboard::cli::shell
