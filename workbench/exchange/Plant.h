// A plant: what stands in the building before anything is configured (data/plants/<NAME>.json or a file of the user's).
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace cordboard::workbench {

class Exchange;

// A plant that cannot be read; the message names the file and the place.
class PlantError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
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
};

// The built-in plants, by name.
std::vector<std::string> PlantNames();
// A built-in plant by its name, or a plant file by its path. Fails with PlantError.
Plant ReadPlant(const std::string& nameOrFile);
// Reads a plant from JSON text; `source` names it in errors.
Plant ParsePlant(std::string_view json, const std::string& source);

// Enters the plant in a new exchange: places, LIMs, boards with their equipment positions, customers, trunk lines,
// routes, and the rows of the category table, which are provided in advance and blank.
void EnterPlant(Exchange& exchange, const Plant& plant);

}  // namespace cordboard::workbench
