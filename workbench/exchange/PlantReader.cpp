#include "workbench/exchange/PlantReader.h"

#include <optional>
#include <set>
#include <string>

#include "workbench/data/DataFile.h"
#include "workbench/exchange/PlantValues.h"

namespace cordboard::workbench {

namespace {

// The names of one kind. Where one of them could not be read, nobody can say which there is not.
template <typename Name>
struct Names {
  std::set<Name> all = {};
  bool complete = true;

  bool Lack(const Name& name) const { return complete && !all.contains(name); }
};

class Reader {
 public:
  explicit Reader(const Plant& standing) : isWhole_(standing.name.empty()), categories_(standing.categories) {
    for (const auto& location : standing.locations) locations_.all.insert(location.name);
    for (const auto& lim : standing.lims) lims_.all.insert(lim.number);
    for (const auto& board : standing.boards) boards_.insert(board.Position());
    for (const auto& customer : standing.customers) customers_.insert(customer.number);
    for (const auto& [lim, line] : standing.trunkLines) trunkLines_.insert(line);
    routes_.insert(standing.routes.begin(), standing.routes.end());
  }

  void Read(const PlantText& text) {
    file_ = text.source;
    Try([&] { ReadObject(ReadData(text.json, text.source), &Reader::ReadPlant); });
  }

  // All that was read.
  Plant Finish() {
    if (!problems_.empty()) throw PlantError(std::move(problems_));
    return std::move(read_);
  }

 private:
  using ReadFields = void (Reader::*)(Fields&);

  // --- Gathering what is wrong.

  // Does the work, and notes it where it fails. Gives whether all was well.
  template <typename Work>
  bool Try(Work work) {
    const std::size_t before = problems_.size();
    try {
      work();
    } catch (const DataError& error) {
      problems_.push_back({file_, error.complaint()});
    }
    return problems_.size() == before;
  }

  // What `read` makes of a field; nothing where that fails.
  template <typename Read>
  auto Field(Fields& fields, const char* key, Read read) {
    std::optional<decltype(read(fields.At(key)))> value;
    Try([&] { value = read(fields.At(key)); });
    return value;
  }

  std::string Description(Fields& fields) {
    std::string text;
    Try([&] { text = ReadDescription(fields); });
    return text;
  }

  void Note(const DataItem& item, const std::string& complaint) {
    Try([&] { item.Fail(complaint); });
  }

  void ReadObject(const DataItem& item, ReadFields read) {
    Fields fields(item);
    (this->*read)(fields);
    for (const std::string& complaint : fields.Unknown()) Note(item, complaint);
  }

  // With those that there are, a list has at most so many items. Gives whether all was well.
  template <typename Read>
  bool ReadList(Fields& plant, const char* key, std::size_t there, std::size_t most, Read read) {
    return Try([&] {
      const auto list = plant.Find(key);
      if (!list) return;
      const DataItems items = list->List();
      CheckRoom(*list, there + items.size(), most);
      for (const DataItem& item : items) Try([&] { read(item); });
    });
  }

  bool ReadObjects(Fields& plant, const char* key, std::size_t there, std::size_t most, ReadFields read) {
    return ReadList(plant, key, there, most, [&](const DataItem& item) { ReadObject(item, read); });
  }

  // --- A plant and its parts. What has something wrong in it is read on, and kept by nobody.

  void ReadPlant(Fields& plant) {
    for (const char* key : {"name", "locations", "lims", "boards"})
      if (isWhole_) Try([&] { plant.At(key); });
    if (plant.Has("name")) read_.name = Field(plant, "name", ReadName).value_or("");
    plant.Find("problems");  // the program adds them to all that it prints as JSON
    locations_.complete &= ReadObjects(plant, "locations", locations_.all.size(), mostLocations, &Reader::ReadLocation);
    lims_.complete &= ReadObjects(plant, "lims", lims_.all.size(), highestLim, &Reader::ReadLim);
    ReadObjects(plant, "boards", boards_.size(), mostBoards, &Reader::ReadBoard);
    ReadObjects(plant, "customers", customers_.size(), mostCustomers, &Reader::ReadCustomer);
    ReadObjects(plant, "trunkLines", 0, mostTrunkLines, &Reader::ReadTrunkLines);
    ReadList(plant, "routes", 0, mostRoutes, [&](const DataItem& item) {
      for (std::string& route : ReadNumbers(item, routes_, mostRoutes)) read_.routes.push_back(std::move(route));
    });
    if (const auto categories = plant.Find("categories"))
      Try([&] { read_.categories = categories_ = ReadWhole(*categories, categories_, mostCategories); });
  }

  void ReadLocation(Fields& fields) {
    const auto name = Field(fields, "location", ReadName);
    if (name && !locations_.all.insert(*name).second)
      Note(fields.At("location"), "there is a location '" + *name + "' already");
    read_.locations.push_back({name.value_or(""), Description(fields)});
  }

  void ReadLim(Fields& fields) {
    const auto number = Field(fields, "lim", [](const DataItem& item) { return ReadWhole(item, 1, highestLim); });
    if (number && !lims_.all.insert(*number).second)
      Note(fields.At("lim"), "there is a LIM " + std::to_string(*number) + " already");
    const auto location = Field(fields, "location", ReadName);
    if (location && locations_.Lack(*location)) Note(fields.At("location"), "there is no location '" + *location + "'");
    read_.lims.push_back({number.value_or(0), location.value_or(""), Description(fields)});
  }

  void ReadBoard(Fields& fields) {
    const auto lim = LimOf(fields);
    const auto magazine =
        Field(fields, "magazine", [](const DataItem& item) { return ReadWhole(item, 0, highestMagazine); });
    const auto slot = Field(fields, "slot", [](const DataItem& item) { return ReadWhole(item, 0, highestSlot); });
    const auto type = Field(fields, "type", ReadBoardType);
    Plant::Board board{lim.value_or(0), magazine.value_or(0), slot.value_or(0), type.value_or("")};
    if (type) board.type = BoardTypes().at(*type);
    if (lim && magazine && slot && !boards_.insert(board.Position()).second)
      Note(fields.At("slot"), "there is a board in " + board.Position() + " already");
    read_.boards.push_back(std::move(board));
  }

  void ReadCustomer(Fields& fields) {
    const auto number = Field(fields, "cust", ReadNumber);
    if (number && !customers_.insert(*number).second)
      Note(fields.At("cust"), "there is a customer " + *number + " already");
    read_.customers.push_back({number.value_or(""), Description(fields)});
  }

  void ReadTrunkLines(Fields& fields) {
    const auto lim = LimOf(fields);
    const auto lines =
        Field(fields, "tru", [&](const DataItem& item) { return ReadNumbers(item, trunkLines_, mostTrunkLines); });
    if (!lim || !lines) return;
    for (const std::string& line : *lines) read_.trunkLines.emplace_back(*lim, line);
  }

  // The LIM in which something stands.
  std::optional<int> LimOf(Fields& fields) {
    return Field(fields, "lim", [&](const DataItem& item) {
      const int lim = ReadWhole(item, 1, highestLim);
      if (lims_.Lack(lim)) item.Fail("there is no LIM " + std::to_string(lim));
      return lim;
    });
  }

  bool isWhole_;
  std::string file_;
  std::vector<PlantProblem> problems_;
  Plant read_;

  // What there is so far, standing and read.
  int categories_;
  Names<std::string> locations_;
  Names<int> lims_;
  std::set<std::string> boards_;  // their positions
  std::set<std::string> customers_;
  std::set<std::string> trunkLines_;
  std::set<std::string> routes_;
};

}  // namespace

Plant ReadPieces(const std::vector<PlantText>& pieces, const Plant& standing) {
  Reader reader(standing);
  for (const PlantText& piece : pieces) reader.Read(piece);
  return reader.Finish();
}

}  // namespace cordboard::workbench
