// How a connection is opened, and what its failures mean.

#include <sqlite3.h>

#include <cerrno>
#include <new>
#include <sstream>
#include <thread>

#include "script/Conversions.h"
#include "workbench/database/Connection.h"
#include "workbench/database/FileLocks.h"
#include "workbench/database/RowHook.h"
#include "workbench/database/SqlFunctions.h"
#include "workbench/system/Holder.h"
#include "workbench/system/Signals.h"
#include "workbench/system/SystemMessage.h"

namespace cordboard::workbench {

namespace {

constexpr std::chrono::milliseconds betweenTries(20);
// A signal is looked for after so many steps of a statement.
constexpr int stepsBetweenLooks = 10000;

// A code without what SQLite adds in its higher bytes.
int Kind(int code) { return code & 0xFF; }

// What the system said when a file could not be read or written. At a commit SQLite keeps it with the file alone.
int SystemError(sqlite3* database) {
  int error = sqlite3_system_errno(database);
  if (error == 0) sqlite3_file_control(database, "main", SQLITE_FCNTL_LAST_ERRNO, &error);
  return error != 0 ? error : EIO;
}

int TryAgain(void* patience, int tries) {
  if (tries * betweenTries >= *static_cast<const std::chrono::milliseconds*>(patience) || WaitingSignal() != 0)
    return 0;
  std::this_thread::sleep_for(betweenTries);
  return 1;
}

int IsInterrupted(void*) { return WaitingSignal(); }

}  // namespace

Connection::~Connection() = default;
Connection::Connection(Connection&&) noexcept = default;

void Connection::CloseDatabase::operator()(sqlite3* database) const { sqlite3_close_v2(database); }

Connection::Connection() : patience_(std::make_unique<std::chrono::milliseconds>(0)) {
  Open(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_MEMORY);
}

Connection::Connection(const std::filesystem::path& file, int flags, std::chrono::milliseconds patience)
    : file_(file.string()), patience_(std::make_unique<std::chrono::milliseconds>(patience)) {
  // SQLite gives some names a meaning of their own, ":memory:" among them; whole paths are names of files alone.
  Open(std::filesystem::absolute(file).string(), flags);
}

Connection::Connection(const std::filesystem::path& file, std::chrono::milliseconds patience)
    : Connection(file, SQLITE_OPEN_READWRITE, patience) {
  // A file that may not be written has been opened for reading.
  if (sqlite3_db_readonly(database_.get(), "main") == 1) throw StorageError(file_ + " may not be written");
  // A journal that is undone, not one that is read along, lets others read without a trace; what is confirmed survives
  // a loss of power; and changed pages stay in memory until the commit, so that no reader is shut out before.
  Execute("PRAGMA journal_mode = DELETE; PRAGMA synchronous = EXTRA; PRAGMA cache_spill = OFF");
  if (const auto found = Findings("quick_check(1)"); !found.empty()) throw Damaged(found.front());
}

void Connection::Open(const std::string& name, int flags) {
  // Nobody asks how much memory SQLite has, and to count it takes a lock for each piece. Too late once it is in use.
  [[maybe_unused]] static const int uncounted = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
  sqlite3* database = nullptr;
  // One thread uses a connection.
  const int code = sqlite3_open_v2(name.c_str(), &database, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  database_.reset(database);
  if (code != SQLITE_OK) Fail(code);
  sqlite3_busy_handler(database, TryAgain, patience_.get());
  sqlite3_progress_handler(database, stepsBetweenLooks, IsInterrupted, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  // Text in double quotes is never taken for a value where no column has that name.
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  // Nothing in a file that came from elsewhere acts by itself, and no statement reaches another file.
  sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_limit(database, SQLITE_LIMIT_ATTACHED, 0);
  RegisterSqlFunctions(database);
  footprints_ = std::make_unique<FootprintReader>(database, *clock_);
  hook_ = std::make_unique<RowHook>();
  // What is kept apart for a while needs no room on a disk.
  Execute("PRAGMA temp_store = MEMORY");
}

// Who holds the file, as far as it can be asked: to ask in a transaction would end its own locks.
std::string Connection::Held() const {
  if (!IsTransactionLost()) return file_ + " is read by another process for too long";
  return file_ + " is held by " + HolderOf(file_, writersByte);
}

void Connection::Fail(int code) const {
  switch (Kind(code)) {
    case SQLITE_NOMEM: throw std::bad_alloc();
    case SQLITE_INTERRUPT: throw Interrupted(WaitingSignal());
    case SQLITE_BUSY: EndOnSignal(); throw StorageError(Held());
    case SQLITE_FULL: throw StorageError(file_ + ": " + SystemMessage(ENOSPC));
    case SQLITE_CANTOPEN:
    case SQLITE_IOERR: throw StorageError(file_ + ": " + SystemMessage(SystemError(database_.get())));
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB: throw Damaged(sqlite3_errstr(Kind(code)));
    default: throw DatabaseError(sqlite3_errmsg(database_.get()));
  }
}

StorageError Connection::Damaged(const std::string& how) const {
  return StorageError(file_ + " is damaged (" + how + "): " + adviceOnDamage);
}

std::vector<std::string> Connection::FindDamage() { return Findings("integrity_check"); }

std::vector<std::string> Connection::Findings(const std::string& pragma) {
  const RowSet rows = Run("PRAGMA " + pragma);
  std::vector<std::string> findings;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    std::istringstream text(Joined(rows[0][row]));
    for (std::string line; std::getline(text, line);) {
      const bool heading = line.starts_with("***");
      if (line != "ok" && !heading) findings.push_back(line);
    }
  }
  return findings;
}

}  // namespace cordboard::workbench
