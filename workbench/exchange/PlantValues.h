// The single values of a plant, and their bounds: beyond what a real exchange has, and no burden to a computer.
// docs/plants.md names them. What is wrong with a value is a DataError.
#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace cordboard::workbench {

class DataItem;
class Fields;

inline constexpr int highestLim = 999;  // a position has three digits for it
inline constexpr int highestMagazine = 9;
inline constexpr int highestSlot = 99;
inline constexpr int mostCategories = 1'000;
inline constexpr std::size_t mostLocations = 1'000;
inline constexpr std::size_t mostBoards = 20'000;
inline constexpr std::size_t mostCustomers = 10'000;
inline constexpr std::size_t mostTrunkLines = 50'000;
inline constexpr std::size_t mostRoutes = 10'000;

// A name can be typed into a form, and stand in a statement.
std::string ReadName(const DataItem& item);
// A number of a customer, a line or a route can also be carried by a command line of the exchange. It is a text.
std::string ReadNumber(const DataItem& item);
// The numbers in a text such as "1&2&10&&20". They are added to those that there are, and are none of them.
std::vector<std::string> ReadNumbers(const DataItem& item, std::set<std::string>& there, std::size_t most);
// The field "description", which may be missing.
std::string ReadDescription(Fields& fields);
int ReadWhole(const DataItem& item, int least, int most);
std::string ReadBoardType(const DataItem& item);

// Fails where there would be too many.
void CheckRoom(const DataItem& item, std::size_t count, std::size_t most);

}  // namespace cordboard::workbench
