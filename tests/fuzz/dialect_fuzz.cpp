// Statements: the mapper takes a statement or says why not; what it gives is one statement that SQLite prepares or
// refuses, with as many parameters as it has places. Mapped again it is the same, whatever was mapped before.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "workbench/dialect/Mapper.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"

using namespace cordboard;
using namespace cordboard::workbench;

namespace {

// Whether it is refused or taken, what was mapped before makes no difference.
void ExpectTheSameAgain(std::string_view statement) {
  const auto mapped = [&](auto map) -> std::optional<MappedStatement> {
    try {
      return map(statement, "");
    } catch (const DialectError&) {
      return std::nullopt;
    }
  };
  const auto once = mapped(Map);
  const auto again = mapped(MapAgain);
  if (once.has_value() != again.has_value()) std::abort();
  if (once && (again->sql != once->sql || again->parameters != once->parameters || again->kind != once->kind ||
               again->order != once->order))
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto exchange = Exchange::CreateInMemory("R7", ReadPlant("example"));
  const std::string_view statement(reinterpret_cast<const char*>(data), size);
  ExpectTheSameAgain(statement);
  try {
    const MappedStatement mapped = Map(statement);
    exchange->Start();
    try {
      exchange->Dynamic().RunRule(mapped.sql, mapped.parameters);
    } catch (const DatabaseError& error) {
      if (std::string_view(error.what()).starts_with("the statement does not take these parameters")) std::abort();
    }
    exchange->RollBack();
  } catch (const DialectError&) {
    // Refused.
  }
  return 0;
}
