#include "workbench/exchange/Exchange.h"

#include <unistd.h>

#include <algorithm>
#include <system_error>

#include "script/Conversions.h"
#include "script/Statement.h"
#include "workbench/database/FileHeader.h"
#include "workbench/database/MissingIndexes.h"
#include "workbench/database/Schema.h"
#include "workbench/exchange/NumberSeries.h"
#include "workbench/exchange/PlantTables.h"
#include "workbench/history/Recording.h"
#include "workbench/history/Undo.h"
#include "workbench/system/SystemMessage.h"
#include "workbench/system/WholeFile.h"

namespace cordboard::workbench {

namespace {

// What marks a file as an exchange ("CBBX"), and the version of its schema.
constexpr unsigned applicationId = 0x43424258;
constexpr unsigned schemaVersion = 3;

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

// Refuses what is no exchange before it is opened as one.
void CheckKind(const std::filesystem::path& file) {
  if (!std::filesystem::exists(file)) throw ExchangeError("there is no file " + file.string());
  const auto header = std::filesystem::is_regular_file(file) ? ReadFileHeader(file) : std::nullopt;
  if (!header || header->applicationId != applicationId) throw ExchangeError(file.string() + " is not an exchange");
  if (header->userVersion != schemaVersion)
    throw ExchangeError(file.string() + " was made by another version of cordboard");
}

}  // namespace

const std::vector<std::string>& Releases() {
  static const std::vector<std::string> releases = {"R6", "R6/1", "R7", "R8"};
  return releases;
}

std::unique_ptr<Exchange> Exchange::Create(const std::filesystem::path& file, const std::string& release,
                                           const Plant& plant) {
  if (!file.has_filename()) throw ExchangeError("an exchange needs the name of a file");
  try {
    WriteWholeFile(file, CreateInMemory(release, plant)->dynamic_.Content(), Existing::Refused);
  } catch (const std::filesystem::filesystem_error& error) {
    if (error.code() == std::errc::file_exists)
      throw ExistsAlready(file.string() + " exists already; choose another name");
    throw ExchangeError(file.string() + " cannot be made: " + SystemMessage(error.code().value()));
  }
  return OpenForWriting(file);
}

std::unique_ptr<Exchange> Exchange::CreateInMemory(const std::string& release, const Plant& plant) {
  std::unique_ptr<Exchange> exchange(new Exchange(Connection()));
  exchange->Fill(release, plant);
  return exchange;
}

void Exchange::Fill(const std::string& release, const Plant& plant) {
  if (std::ranges::find(Releases(), release) == Releases().end()) throw ExchangeError("there is no release " + release);
  release_ = release;
  // Each of some 400 tables and indexes has a page of its own, most with little in it or nothing.
  dynamic_.Execute("PRAGMA page_size = 2048");
  Transaction transaction(*this);
  MakeTables(dynamic_, "dynamic");
  MakeTables(dynamic_, "site");
  dynamic_.Execute("CREATE TABLE [Cordboard] ([Name] TEXT PRIMARY KEY, [Value]) WITHOUT ROWID");
  dynamic_.Run("INSERT INTO [Cordboard] VALUES ('Release', ?), ('CmdId', 0), ('Plant', ?)", {release, plant.name});
  IndexSeries(dynamic_);
  EnterPlant(*this, plant);
  BeginHistory(dynamic_, "release " + release + ", plant " + plant.name);
  dynamic_.Execute("PRAGMA application_id = " + std::to_string(applicationId) +
                   "; PRAGMA user_version = " + std::to_string(schemaVersion));
  transaction.Commit();
  KeepLinesApart(dynamic_);
}

std::unique_ptr<Exchange> Exchange::OpenForReading(const std::filesystem::path& file) {
  CheckKind(file);
  auto exchange = Opened(Connection::CopyOf(file));
  AddMissingIndexes(exchange->dynamic_);
  return exchange;
}

std::unique_ptr<Exchange> Exchange::OpenAsOf(const std::filesystem::path& file, int state) {
  auto exchange = OpenForReading(file);
  GoBackTo(exchange->dynamic_, state);
  return exchange;
}

std::unique_ptr<Exchange> Exchange::OpenForWriting(const std::filesystem::path& file,
                                                   std::chrono::milliseconds patience) {
  CheckKind(file);
  const std::filesystem::path folder = std::filesystem::canonical(file).parent_path();
  if (access(folder.c_str(), W_OK) != 0)
    throw ExchangeError(file.string() +
                        " cannot be written where it is: its journal would stand beside it, and the folder " +
                        folder.string() + " may not be written");
  return Opened(Connection(file, patience));
}

std::unique_ptr<Exchange> Exchange::Opened(Connection dynamic) {
  std::unique_ptr<Exchange> exchange(new Exchange(std::move(dynamic)));
  Connection& database = exchange->dynamic_;
  KeepLinesApart(database);
  exchange->release_ = Joined(database.Single("SELECT [Value] FROM [Cordboard] WHERE [Name] = 'Release'"));
  return exchange;
}

Connection* Exchange::Database(const std::string& selector) {
  if (selector == "dynamic" || selector == "site") return &dynamic_;
  return selector == "static" ? &Static().Whole() : nullptr;
}

void Exchange::ActAs(const std::string& release) {
  release_ = release;
  static_.reset();
}

FixedDatabase& Exchange::Static() {
  if (!static_) static_.emplace(release_);
  return *static_;
}

Value Exchange::NewCmdIds(std::size_t count) {
  return dynamic_.Single(
      "UPDATE [Cordboard] SET [Value] = [Value] + ?1 WHERE [Name] = 'CmdId' RETURNING [Value] - ?1 + 1", {count});
}

}  // namespace cordboard::workbench
