// The database's hook before it changes a row, of which a connection has one: several listen to it.
#pragma once

#include <cstdint>
#include <vector>

struct sqlite3;
struct sqlite3_value;

namespace cordboard::workbench {

// A row that a statement is about to insert, update or delete.
class RowTouch {
 public:
  enum class Kind { Insert, Update, Delete };

  RowTouch(sqlite3* database, Kind kind, const char* schema, const char* table, std::int64_t row)
      : database_(database), kind_(kind), schema_(schema), table_(table), row_(row) {}

  Kind kind() const { return kind_; }
  bool IsTemporary() const { return schema_[0] == 't'; }  // the schema is "main" or "temp"
  const char* table() const { return table_; }            // its stored name
  std::int64_t row() const { return row_; }               // its place, which no statement changes
  std::size_t ColumnCount() const;

  // The value of a column by its place in the table, before and after; of a row that is inserted there is none before.
  sqlite3_value* Before(std::size_t column) const;
  sqlite3_value* After(std::size_t column) const;

 private:
  sqlite3* database_;
  Kind kind_;
  const char* schema_;
  const char* table_;
  std::int64_t row_;
};

class RowListener {
 public:
  // Runs no statement. What goes wrong within ends the program: the database knows of no failure.
  virtual void BeforeChange(const RowTouch& touch) noexcept = 0;
  // Some of what was told has been taken back.
  virtual void TakenBack() noexcept {}

 protected:
  ~RowListener() = default;
};

// It stays in its place, since the database knows it.
class RowHook {
 public:
  void Add(sqlite3* database, RowListener& listener);
  void Remove(sqlite3* database, RowListener& listener);
  void TakenBack() noexcept;

 private:
  static void Tell(void* hook, sqlite3* database, int operation, const char* schema, const char* table,
                   long long before, long long after) noexcept;

  std::vector<RowListener*> listeners_;
};

}  // namespace cordboard::workbench
