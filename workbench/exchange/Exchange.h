// An exchange: one file (.cbx) with the configuration, the fixed values of its release, and the store of templates.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "workbench/database/Connection.h"
#include "workbench/database/DatabaseTransaction.h"
#include "workbench/exchange/FixedDatabase.h"

namespace cordboard::workbench {

struct Plant;

// The file is missing, is not an exchange, may not be written, or was made by another version.
class ExchangeError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// There is a file where a new exchange is to stand.
class ExistsAlready : public ExchangeError {
 public:
  using ExchangeError::ExchangeError;
};

// The releases that an exchange can be built for.
const std::vector<std::string>& Releases();

class Exchange {
 public:
  // Makes a new exchange from a plant and puts its file in place whole; an existing file is refused.
  static std::unique_ptr<Exchange> Create(const std::filesystem::path& file, const std::string& release,
                                          const Plant& plant);
  // An exchange in memory, for tests and benchmarks.
  static std::unique_ptr<Exchange> CreateInMemory(const std::string& release, const Plant& plant);
  // A copy in memory of the exchange as it stands in its file now. It needs the right to read the file and no other,
  // and leaves nothing behind; whatever is done to it, the file stays.
  static std::unique_ptr<Exchange> OpenForReading(const std::filesystem::path& file);
  // Such a copy, taken back to how the exchange stood at a state of its history. Fails with a HistoryError where that
  // cannot be reached.
  static std::unique_ptr<Exchange> OpenAsOf(const std::filesystem::path& file, int state);
  // The exchange in its file. The first transaction holds it until its end, with its journal beside it; others read it
  // meanwhile as it was. A file that another process holds is waited for that long.
  static std::unique_ptr<Exchange> OpenForWriting(const std::filesystem::path& file,
                                                  std::chrono::milliseconds patience = std::chrono::seconds(5));

  const std::string& release() const { return release_; }
  // From now on it is as if it had been made for another release; its file does not tell. For who asks what another
  // release would make of the same records.
  void ActAs(const std::string& release);

  // The database in which the tables of a selector stand: "dynamic" and "site" share the exchange's file, "static" has
  // one of its own. Nothing for any other.
  Connection* Database(const std::string& selector);
  // The fixed values of the release.
  FixedDatabase& Static();
  Connection& Dynamic() { return dynamic_; }

  // A new record identifier, and the first of several that follow each other.
  Value NewCmdId() { return NewCmdIds(1); }
  Value NewCmdIds(std::size_t count);

  // Transactions nest.
  void Start() { dynamic_.Start(); }
  void Commit() { dynamic_.Commit(); }
  void RollBack() { dynamic_.RollBack(); }
  int OpenTransactions() const { return dynamic_.OpenTransactions(); }

 private:
  explicit Exchange(Connection dynamic) : dynamic_(std::move(dynamic)) {}
  void Fill(const std::string& release, const Plant& plant);
  static std::unique_ptr<Exchange> Opened(Connection dynamic);

  Connection dynamic_;
  std::string release_;
  std::optional<FixedDatabase> static_;
};

// A transaction of the workbench's own.
class Transaction : public DatabaseTransaction {
 public:
  explicit Transaction(Exchange& exchange) : DatabaseTransaction(exchange.Dynamic()) {}
};

}  // namespace cordboard::workbench
