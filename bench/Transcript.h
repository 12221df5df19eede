// The statements that reach SQLite, noted with their values in place, and their replay with nothing but SQLite.
#pragma once

#include <span>
#include <string>
#include <vector>

struct sqlite3;

namespace cordboard::bench {

struct Statement {
  std::size_t database = 0;  // the connections in the order in which they were opened
  std::string sql;
};

// Notes, while it lives, what every connection runs that is opened in that time. One at a time.
class Recorder {
 public:
  Recorder();
  ~Recorder();
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  const std::vector<Statement>& statements() const { return statements_; }

  void Opened(sqlite3* database);
  void Ran(sqlite3* database, const char* sql);

 private:
  std::vector<sqlite3*> databases_;
  std::vector<Statement> statements_;
};

// Databases in memory, on which statements are prepared, stepped to their end and finalized, each for itself.
class Replay {
 public:
  Replay() = default;
  ~Replay();
  Replay(const Replay&) = delete;
  Replay& operator=(const Replay&) = delete;

  // Fails with std::runtime_error where SQLite refuses a statement.
  void Run(std::span<const Statement> statements);

 private:
  sqlite3* Database(std::size_t number);

  std::vector<sqlite3*> databases_;
};

}  // namespace cordboard::bench
