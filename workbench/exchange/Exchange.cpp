#include "workbench/exchange/Exchange.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

#include "script/Conversions.h"
#include "script/Statement.h"
#include "workbench/database/Schema.h"
#include "workbench/exchange/NumberSeries.h"
#include "workbench/exchange/PlantTables.h"

namespace cordboard::workbench {

namespace {

// What marks a file as an exchange ("CBBX"), and the version of its schema.
constexpr int applicationId = 0x43424258;
constexpr int schemaVersion = 3;

void MakeTables(Connection& database, const char* selector) {
  for (const std::string& statement : CreateStatements(ShippedSchema().Database(selector))) database.Execute(statement);
}

// Generated lines are nobody's data: while an exchange is open they stand in tables of the connection, in front of
// those in the file, so that an exchange can be generated that is not to be written.
void KeepLinesApart(Connection& database) {
  for (const char* selector : {"dynamic", "site"}) {
    const std::string table = ShippedSchema().Database(selector).Stored("BuiltCmd");
    database.Execute(Text("CREATE TEMP TABLE ", table, " AS SELECT * FROM [main].", table, " LIMIT 0"));
  }
}

// Makes the file for its owner alone, since an exchange holds passwords; SQLite gives the files beside it the same
// rights.
void MakePrivateFile(const std::filesystem::path& file) {
  const int made = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (made < 0) throw ExchangeError(file.string() + " cannot be made: " + std::strerror(errno));
  close(made);
}

void RemoveFiles(const std::filesystem::path& file) {
  std::error_code ignored;
  for (const char* ending : {"", "-wal", "-shm", "-journal"}) std::filesystem::remove(file.string() + ending, ignored);
}

}  // namespace

const std::vector<std::string>& Releases() {
  static const std::vector<std::string> releases = {"R6", "R6/1", "R7", "R8"};
  return releases;
}

std::unique_ptr<Exchange> Exchange::Create(const std::filesystem::path& file, const std::string& release,
                                           const Plant& plant) {
  if (!file.has_filename()) throw ExchangeError("an exchange needs the name of a file");
  if (std::filesystem::exists(file)) throw ExchangeError(file.string() + " exists already; choose another name");
  MakePrivateFile(file);
  try {
    std::unique_ptr<Exchange> exchange(new Exchange(Connection(file, Connection::Mode::Create)));
    exchange->dynamic_.Execute("PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL");
    exchange->Fill(release, plant);
    return exchange;
  } catch (const DatabaseError& error) {
    RemoveFiles(file);
    throw ExchangeError(file.string() + " cannot be made: " + error.what());
  } catch (...) {
    RemoveFiles(file);
    throw;
  }
}

std::unique_ptr<Exchange> Exchange::CreateInMemory(const std::string& release, const Plant& plant) {
  std::unique_ptr<Exchange> exchange(new Exchange(Connection()));
  exchange->Fill(release, plant);
  return exchange;
}

void Exchange::Fill(const std::string& release, const Plant& plant) {
  if (std::ranges::find(Releases(), release) == Releases().end()) throw ExchangeError("there is no release " + release);
  release_ = release;
  Transaction transaction(*this);
  MakeTables(dynamic_, "dynamic");
  MakeTables(dynamic_, "site");
  dynamic_.Execute("CREATE TABLE [Cordboard] ([Name] TEXT PRIMARY KEY, [Value]) WITHOUT ROWID");
  dynamic_.Run("INSERT INTO [Cordboard] VALUES ('Release', ?), ('CmdId', 0), ('Plant', ?)", {release, plant.name});
  IndexSeries(dynamic_);
  EnterPlant(*this, plant);
  dynamic_.Execute("PRAGMA application_id = " + std::to_string(applicationId) +
                   "; PRAGMA user_version = " + std::to_string(schemaVersion));
  transaction.Commit();
  KeepLinesApart(dynamic_);
}

std::unique_ptr<Exchange> Exchange::Open(const std::filesystem::path& file) {
  if (!std::filesystem::exists(file)) throw ExchangeError("there is no file " + file.string());
  const std::string notAnExchange = file.string() + " is not an exchange";
  if (!std::filesystem::is_regular_file(file)) throw ExchangeError(notAnExchange);
  try {
    std::unique_ptr<Exchange> exchange(new Exchange(Connection(file, Connection::Mode::ReadWrite)));
    Connection& database = exchange->dynamic_;
    if (!Equals(database.Single("PRAGMA application_id"), applicationId)) throw ExchangeError(notAnExchange);
    if (!Equals(database.Single("PRAGMA user_version"), schemaVersion))
      throw ExchangeError(file.string() + " was made by another version of cordboard");
    database.Execute("PRAGMA synchronous = FULL");
    KeepLinesApart(database);
    exchange->release_ = Joined(database.Single("SELECT [Value] FROM [Cordboard] WHERE [Name] = 'Release'"));
    return exchange;
  } catch (const DatabaseError& error) {
    if (access(std::filesystem::absolute(file).parent_path().c_str(), W_OK) != 0)
      throw ExchangeError(file.string() + " cannot be opened where it is: an open exchange writes beside its file");
    throw ExchangeError(file.string() + " cannot be opened as an exchange: " + error.what());
  }
}

Connection* Exchange::Database(const std::string& selector) {
  if (selector == "dynamic" || selector == "site") return &dynamic_;
  return selector == "static" ? &Static().Whole() : nullptr;
}

FixedDatabase& Exchange::Static() {
  if (!static_) static_.emplace(release_);
  return *static_;
}

Value Exchange::NewCmdIds(std::size_t count) {
  return dynamic_.Single(
      "UPDATE [Cordboard] SET [Value] = [Value] + ?1 WHERE [Name] = 'CmdId' RETURNING [Value] - ?1 + 1", {count});
}

void Transaction::Commit() {
  exchange_.Commit();
  open_ = false;
}

void Transaction::RollBack() {
  open_ = false;
  exchange_.RollBack();
}

Transaction::~Transaction() {
  if (!open_) return;
  try {
    exchange_.RollBack();
  } catch (const DatabaseError&) {
    // The database has rolled back by itself, or is gone: there is nothing left to undo.
  }
}

}  // namespace cordboard::workbench
