// Equipment positions: the order in which they are offered, and the board on which one lies.
#pragma once

#include <string>

#include "script/Report.h"
#include "script/Value.h"

namespace cordboard {

// The end of a statement that lists positions: the user's ordering clause as the host gives it, else the default.
std::string EquipmentOrder();

// The beginnings of the statements that list positions (EQU) or boards. They differ in the places of their line ends
// alone where they join the same tables; a condition and an order follow.
//
// Positions with their boards, LIMs and locations.
inline constexpr const char* EquipmentAtLocations =
    "SELECT Equipment.EQU FROM Locations\r\n INNER JOIN ((Boards\r\n INNER JOIN Equipment ON (Boards.Slot = "
    "Equipment.Slot) AND (Boards.Magazine = Equipment.Magazine) AND (Boards.LIM = Equipment.LIM))\r\n INNER JOIN LIMs "
    "ON Boards.LIM = LIMs.LIM) ON Locations.Location = LIMs.Location\r\n ";
// Positions with their boards.
inline constexpr const char* EquipmentOnBoards =
    "SELECT Equipment.EQU \r\n FROM Boards \r\n INNER JOIN Equipment \r\n ON (Boards.Slot = Equipment.Slot) \r\n AND "
    "(Boards.Magazine = Equipment.Magazine) AND (Boards.LIM = Equipment.LIM)\r\n ";
// The same, without a line end in front of FROM.
inline constexpr const char* EquipmentOnBoardsFromInLine =
    "SELECT Equipment.EQU FROM Boards \r\n INNER JOIN Equipment \r\n ON (Boards.Slot = Equipment.Slot) \r\n AND "
    "(Boards.Magazine = Equipment.Magazine) AND (Boards.LIM = Equipment.LIM)\r\n ";
// Positions with their boards and LIMs: over several lines, and in one.
inline constexpr const char* EquipmentInLIMs =
    "SELECT Equipment.EQU \r\n FROM (Boards INNER JOIN Equipment ON (Boards.Slot = Equipment.Slot)\r\n AND "
    "(Boards.Magazine = Equipment.Magazine) AND (Boards.LIM = Equipment.LIM))\r\n INNER JOIN LIMs ON Boards.LIM = "
    "LIMs.LIM \r\n ";
inline constexpr const char* EquipmentInLIMsInLine =
    "SELECT Equipment.EQU  FROM (Boards INNER JOIN Equipment ON (Boards.Slot = Equipment.Slot) AND (Boards.Magazine = "
    "Equipment.Magazine) AND (Boards.LIM = Equipment.LIM)) INNER JOIN LIMs ON Boards.LIM = LIMs.LIM  ";
// Boards with their LIMs.
inline constexpr const char* BoardsInLIMs =
    "SELECT Boards.LIM, Boards.Magazine, Boards.Slot FROM Boards INNER JOIN LIMs ON Boards.LIM = LIMs.LIM ";

// The board of a position, read by the statement that key extensions and terminals share. A statement that fails is
// reported; a position without a board fails the call.
bool ReadBoardID(const Reporter& fail, const Value& EQU, Value& BoardID);

}  // namespace cordboard
