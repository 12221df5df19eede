// The statements that reach SQLite, noted with their values in place, and their replay with nothing but SQLite.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "script/Host.h"

struct sqlite3;

namespace cordboard::bench {

struct Statement {
  std::size_t database = 0;  // the connections in the order in which they were opened
  std::string sql;
  bool ofRules = false;  // run for a rule, and not for the workbench itself
};

// Notes, while it lives, what every connection runs that is opened in that time. One at a time.
class Recorder {
 public:
  Recorder();
  ~Recorder();
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  const std::vector<Statement>& statements() const { return statements_; }

  // A host in front of the workbench, by which the statements of the rules are known.
  std::shared_ptr<Host> InFrontOf(std::shared_ptr<Host> workbench);

  void Opened(sqlite3* database);
  void Ran(sqlite3* database, const char* sql);

 private:
  std::vector<sqlite3*> databases_;
  std::vector<Statement> statements_;
  bool ofRules_ = false;
};

// Databases in memory, on which statements are prepared, stepped to their end and finalized, each for itself.
class Replay {
 public:
  Replay() = default;
  ~Replay();
  Replay(const Replay&) = delete;
  Replay& operator=(const Replay&) = delete;

  // Gives the seconds that the statements of the rules have taken. Fails with std::runtime_error where SQLite refuses a
  // statement.
  double Run(std::span<const Statement> statements);

 private:
  void RunEach(std::span<const Statement> statements);
  sqlite3* Database(std::size_t number);

  std::vector<sqlite3*> databases_;
};

}  // namespace cordboard::bench
