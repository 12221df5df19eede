// Which tables a statement touches, as the database tells while it prepares the statement, and that one of the library
// touches rows of its tables alone.
#pragma once

#include <vector>

#include "workbench/database/ChangeClock.h"

struct sqlite3;

namespace cordboard::workbench {

struct Footprint {
  std::vector<ChangeClock::Table> touched;  // read or written
  std::vector<ChangeClock::Table> appended;
  std::vector<ChangeClock::Table> rewritten;

  bool Writes() const { return !appended.empty() || !rewritten.empty(); }
};

// Takes the footprints of the statements of one connection. It stays in its place, since the database knows it: to be
// told of each statement anew makes the database prepare all others once more.
class FootprintReader {
 public:
  FootprintReader(sqlite3* database, ChangeClock& clock);
  FootprintReader(const FootprintReader&) = delete;
  FootprintReader& operator=(const FootprintReader&) = delete;

  // Does what prepares a statement. One of the library is refused where it touches anything but rows of its tables.
  template <typename Prepare>
  Footprint Of(bool library, Prepare prepare) {
    Footprint footprint;
    const Reading reading(*this, footprint, library);
    prepare();
    return footprint;
  }

 private:
  struct Reading {
    Reading(FootprintReader& of, Footprint& footprint, bool library) : reader(of) {
      reader.footprint_ = &footprint;
      reader.library_ = library;
    }
    ~Reading() { reader.footprint_ = nullptr; }
    FootprintReader& reader;
  };

  static int Touch(void* reader, int action, const char* first, const char*, const char*, const char*) noexcept;

  ChangeClock& clock_;
  Footprint* footprint_ = nullptr;  // of the statement that is being prepared
  bool library_ = false;
};

}  // namespace cordboard::workbench
