// The file of the exchange on which a shell works. Nothing is held between two actions.
#pragma once

#include <sys/stat.h>

#include <memory>
#include <optional>
#include <string>

#include "workbench/exchange/Exchange.h"

namespace cordboard::cli::shell {

class ExchangeFile {
 public:
  // The name may be that of a state of the past (ParseExchangeName), which only reads. A file that another process
  // holds is waited for so many seconds.
  ExchangeFile(std::string name, bool readOnly, unsigned wait);

  const std::string& name() const { return name_; }
  bool IsReadOnly() const { return readOnly_; }
  // Of the file, without its folder and its ending; with control characters escaped.
  std::string ShortName() const;

  // A copy of the exchange as it stands now. It is kept as long as nobody writes the file, and never changed.
  workbench::Exchange& Look();
  // Another copy, to be changed.
  std::unique_ptr<workbench::Exchange> Copy() const;
  // The exchange in its file; ends the action where the shell only reads.
  std::unique_ptr<workbench::Exchange> ToWrite() const;
  // Warns once where others can read what secrets the exchange holds.
  void WarnOfReaders(workbench::Exchange& exchange);

 private:
  // By which a file is told from what it was.
  struct Stand {
    dev_t device = 0;
    ino_t file = 0;
    off_t size = 0;
    long long written = 0;
    friend bool operator==(const Stand&, const Stand&) = default;
  };
  Stand Now() const;

  std::string name_;
  bool readOnly_;
  unsigned wait_;
  bool warned_ = false;
  std::unique_ptr<workbench::Exchange> copy_;
  Stand copied_;
};

}  // namespace cordboard::cli::shell
