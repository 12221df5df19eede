// The characters of a text as the database holds them.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <string_view>

namespace cordboard::workbench {

// Of a value that is a text or bytes. It stands as long as the value does, of a row until the next one. To be asked for
// a text, SQLite would copy most of them, so that a zero can stand after the last character.
inline std::string_view StoredText(sqlite3_value* value) {
  const auto* characters = static_cast<const char*>(sqlite3_value_blob(value));
  return {characters, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

}  // namespace cordboard::workbench
