// How the file of a connection is copied into memory, and how often it has been written.

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <new>

#include "workbench/database/Connection.h"
#include "workbench/database/FileHeader.h"
#include "workbench/database/PrivateCopy.h"

namespace cordboard::workbench {

namespace {

// A reader waits for a commit alone, which takes moments.
constexpr std::chrono::seconds readersPatience(30);
// Where the file's head counts its changes.
constexpr int placeOfChangeCount = 24;
// SQLite counts what is read at once by an int.
constexpr sqlite3_int64 mostAtOnce = 1 << 30;
// To which a copy may grow: no bound, as for any database in memory.
constexpr sqlite3_int64 mostInMemory = std::numeric_limits<sqlite3_int64>::max();

// A file is named by its whole path. Memory has no name, or where it is a copy one without a folder.
bool IsFile(sqlite3* database) {
  const char* name = sqlite3_db_filename(database, "main");
  return name != nullptr && *name == '/';
}

// What the database itself reads of the file: to open and close it once more would end its locks. What a transaction
// writes does not stand there before its commit. Gives SQLite's code.
int ReadFile(sqlite3* database, unsigned char* bytes, sqlite3_int64 size, sqlite3_int64 from) {
  sqlite3_file* file = nullptr;
  sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  int code = SQLITE_OK;
  for (sqlite3_int64 done = 0; done < size && code == SQLITE_OK; done += mostAtOnce) {
    const auto part = static_cast<int>(std::min<sqlite3_int64>(mostAtOnce, size - done));
    code = file->pMethods->xRead(file, bytes + done, part, from + done);
  }
  return code;
}

int SizeOfFile(sqlite3* database, sqlite3_int64& size) {
  sqlite3_file* file = nullptr;
  sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  return file->pMethods->xFileSize(file, &size);
}

}  // namespace

Connection Connection::CopyOf(const std::filesystem::path& file) {
  Connection copy;
  copy.file_ = file.string();
  const auto header = ReadFileHeader(file);
  const bool readable = !header || !header->writeAhead;
  if (readable && Connection(file, SQLITE_OPEN_READONLY, readersPatience).CopyTo(copy)) return copy;
  const PrivateCopy own(std::filesystem::canonical(file));
  Connection repaired(own.file(), SQLITE_OPEN_READWRITE, readersPatience);
  repaired.file_ = copy.file_;
  repaired.Execute("PRAGMA journal_mode = DELETE");
  repaired.CopyTo(copy);
  return copy;
}

bool Connection::CopyTo(Connection& other) const {
  // Read in one transaction, so that the count is that of what is copied. It ends with the connection. A number of the
  // file's head is read without its schema.
  const int started = sqlite3_exec(database_.get(), "BEGIN; PRAGMA schema_version", nullptr, nullptr, nullptr);
  // Its kind, without what SQLite adds in higher bytes.
  if ((started & 0xFF) == SQLITE_READONLY) return false;
  if (started != SQLITE_OK) Fail(started);
  other.timesCopied_ = TimesWritten();
  sqlite3_int64 size = 0;
  if (const int code = SizeOfFile(database_.get(), size); code != SQLITE_OK) Fail(code);
  if (size == 0) return true;
  std::unique_ptr<unsigned char, decltype(&sqlite3_free)> bytes(
      static_cast<unsigned char*>(sqlite3_malloc64(static_cast<sqlite3_uint64>(size))), sqlite3_free);
  if (bytes == nullptr) throw std::bad_alloc();
  if (const int code = ReadFile(database_.get(), bytes.get(), size, 0); code != SQLITE_OK) Fail(code);
  const int code = sqlite3_deserialize(other.database_.get(), "main", bytes.release(), size, size,
                                       SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE);
  if (code != SQLITE_OK) other.Fail(code);
  sqlite3_int64 most = mostInMemory;
  sqlite3_file_control(other.database_.get(), "main", SQLITE_FCNTL_SIZE_LIMIT, &most);
  return true;
}

std::uint32_t Connection::TimesWritten() const {
  if (!IsFile(database_.get())) return timesCopied_;
  std::array<unsigned char, 4> count{};
  const int code = ReadFile(database_.get(), count.data(), count.size(), placeOfChangeCount);
  if (code != SQLITE_OK) Fail(code);
  return static_cast<std::uint32_t>(count[0]) << 24 | static_cast<std::uint32_t>(count[1]) << 16 |
         static_cast<std::uint32_t>(count[2]) << 8 | count[3];
}

std::uint32_t Connection::TimesWrittenAfterCommit() const { return TimesWritten() + (IsFile(database_.get()) ? 1 : 0); }

std::string Connection::Content() const {
  sqlite3_int64 size = 0;
  unsigned char* bytes = sqlite3_serialize(database_.get(), "main", &size, 0);
  if (bytes == nullptr) throw std::bad_alloc();
  std::string content(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
  sqlite3_free(bytes);
  return content;
}

}  // namespace cordboard::workbench
