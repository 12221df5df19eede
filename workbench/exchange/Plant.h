// A plant: what stands in the building before anything is configured. docs/plants.md describes its JSON, in which it
// stands in data/plants/<NAME>.json or a file of the user's.
#pragma once

#include <map>
#include <nlohmann/json_fwd.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cordboard::workbench {

// Something that is wrong with a plant: the file, and the place in it with what is wrong ("boards[3].slot: ...").
struct PlantProblem {
  std::string file;  // empty where there is none
  std::string message;
};

// A plant that cannot be read, or does not fit into the exchange: all that is wrong with it.
class PlantError : public std::runtime_error {
 public:
  explicit PlantError(std::vector<PlantProblem> problems);
  const std::vector<PlantProblem>& problems() const { return problems_; }

 private:
  std::vector<PlantProblem> problems_;
};

struct Plant {
  struct Location {
    std::string name;
    std::string description;
  };
  struct Lim {
    int number = 1;
    std::string location;
    std::string description;
  };
  // What boards of a type have (data/board-types.json): individuals from `first` on, in so many digits.
  struct BoardType {
    std::string title;
    int positions = 0;
    int first = 0;
    int digits = 2;
  };
  // A board in a slot.
  struct Board {
    int lim = 1;
    int magazine = 0;
    int slot = 0;
    std::string boardId;
    BoardType type = {};

    std::string Position() const;  // "001-0-12"
  };
  struct Customer {
    std::string number;
    std::string description;
  };

  std::string name;
  std::vector<Location> locations = {};
  std::vector<Lim> lims = {};
  std::vector<Board> boards = {};
  std::vector<Customer> customers = {};
  std::vector<std::pair<int, std::string>> trunkLines = {};  // LIM and TRU
  std::vector<std::string> routes = {};                      // the pool of route numbers
  int categories = 0;                                        // rows of the category table that are provided, 0 and on

  int Positions() const;  // those of all boards
};

// The types of boards, by their BoardID.
const std::map<std::string, Plant::BoardType>& BoardTypes();

// A plant, or a piece of one, as it is written.
struct PlantText {
  std::string source;  // what errors name: the file
  std::string json;
};

// The built-in plants, by name.
std::vector<std::string> PlantNames();
// The file of the user's. Fails with PlantError.
PlantText ReadPlantFile(const std::string& file);
// A built-in plant by its name, or a plant file by its path. Fails with PlantError.
Plant ReadPlant(const std::string& nameOrFile);
// Reads a plant from JSON text; `source` names it in errors.
Plant ParsePlant(std::string_view json, const std::string& source);

// How many of what it holds, by the names that its JSON has for them, and its positions.
std::vector<std::pair<std::string, std::size_t>> Counts(const Plant& plant);

// The plant as ParsePlant reads it.
nlohmann::json JsonOf(const Plant& plant);

}  // namespace cordboard::workbench
