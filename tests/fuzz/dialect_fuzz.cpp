// Statements: the mapper takes a statement or says why not; what it gives is one statement that SQLite prepares or
// refuses, with as many parameters as it has places. Mapped again it is the same, whatever was mapped before.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "workbench/dialect/Mapper.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"

using namespace cordboard;
using namespace cordboard::workbench;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto exchange = Exchange::CreateInMemory("R7", ReadPlant("example"));
  try {
    const std::string_view statement(reinterpret_cast<const char*>(data), size);
    const MappedStatement mapped = Map(statement);
    const MappedStatement again = MapAgain(statement, "");
    if (again.sql != mapped.sql || again.parameters != mapped.parameters) std::abort();
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
