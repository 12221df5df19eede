// The message codes by name. Each comment says when a message is raised, then its arguments in order. The texts are the
// host's. 60000 and up are checks of data, 61000 failures of a named step, 62000 failures of the database.
#pragma once

namespace cordboard {

// Unscoped, so that a refusal reads as fail(ListNotBuilt, "DIR").
enum Message : int {
  InsertRefused = 60000,               // the insert of a record of CDCOI, CDINI or ADINI failed: table, table
  ColumnUpdateFailed = 60001,          // an update of one column failed: column, table
  CategoryUpdateFailed = 60003,        // the update of a category failed: table
  ValueNotFound = 60004,               // a value was not found where it had to be: columns, table
  ColumnHasNoValue = 60005,            // a record read has no value in a column that must have one: column
  RecordNotRead = 60006,               // a record to be changed could not be read: table
  BlockedRangeNotRemoved = 60007,      // a number could not be taken out of the blocked ranges: number or column
  ConstantInBlockedRange = 60008,      // a constant lies in a blocked range: command
  NumberInUse = 60010,                 // a number is in use: command, or nothing
  ValuePresentForKey = 60011,          // the value is already present for this key: value, column
  MinimumAboveMaximum = 60012,         // the minimum exceeds the maximum: name, name
  ValueUsedTwice = 60013,              // two parameters of one record have the same value: parameter
  NothingToOffer = 60015,              // no value is left to offer, or one could not be taken out: parameter
  TooManyMDN = 60016,                  // the extension has as many further numbers as it can: "30", "MDNs", number
  RecordInTheWay = 60017,              // a record of another command stands in the way: "CmdID", value, value, "KSANI"
  NoAvailableKeys = 60020,             // the extension has no free key: number
  DigitsMustEndWithB = 60021,          // a digit string that begins with A or B has to end with B: parameter
  DigitsHaveBInBetween = 60022,        // a digit string has a B in between: parameter
  ParametersExcludeEachOther = 60025,  // a parameter was given together with one that excludes it: two names
  NumberTooLong = 60026,               // the number is too long for its type: largest length, number type
  NumberTooShort = 60027,              // the number is too short for its type: smallest length, number type
  DigitsDoNotSuitFunction = 60030,     // a digit parameter does not suit the function: three names
  TableHoldsRecord = 60031,            // the table of a single-record command holds a record already: command
  LengthAboveMinimum = 60032,          // the digits are longer than the least length: name, name
  CodeNotDefined = 60033,              // the code is not defined in that table: value, table
  RecordsForbidChange = 60034,         // records that exist for this number forbid the change: name
  CategoryRoleTaken = 60035,           // another category has this role: "MIN" or "DEFAULT"
  AdditionalNumberRefused = 60036,     // a test on the last two digits of a stored value failed: nothing
  CategoryUsedByAdditionalNumbers = 60037,  // the category is used by additional numbers: name
  ValueAgainstPrefixRule = 60039,           // the value does not fit the rule of its digits or its prefix: parameter
  ValueNeededForEdit = 60040,               // a value needed for the edit is missing: name
  SharedBoardRefused = 60041,               // the settings do not suit the other lines of the board: nothing
  ValueNotInList = 60042,                   // a value was not found in its list: parameter
  NoEquipmentGiven = 60043,                 // no equipment was given: nothing
  LinkNotDefined = 60044,                   // the link is not defined: nothing
  PortDoesNotSuitFormat = 60045,            // the port does not suit the format: "PORT", "POFMT"
  PortTaken = 60046,                        // the port is taken: "PORT"
  RecordNeededElsewhere = 60047,            // a record of another command needs this one: command, command or words
  RequiredValueMissing = 60048,             // a required value is missing: two names
  ValueNotValidHere = 60049,                // the value is not valid here, or was not found: parameter
  WrongKindOfCategory = 60050,              // the kind of number takes the other kind of category: word, parameter
  KeyExistsAlready = 60051,                 // a record with this key exists already: "CUSTOMER" or "FORM"
  UsedMarkFailed = 61005,                   // the mark of use of a number or a route could not be changed: number
  RecordNotFound = 61007,                   // a record that must exist was not found: nothing
  NewEquipmentNotWritten = 61008,           // the record could not be given its new equipment: parameter
  OldEquipmentNotFreed = 61009,             // the old equipment could not be freed: equipment
  EquipmentNotMarked = 61010,               // the equipment could not be marked: equipment
  ColumnNotWritten = 61011,                 // one column of the record could not be written: column
  RecordNotDeleted = 61012,                 // the record could not be deleted: command, record identifier
  ResetFailed = 61013,                      // a parameter could not be reset: parameter
  LocationsNotRead = 61014,                 // the table of locations could not be read: value
  SetFailed = 61016,                        // a parameter could not be set: parameter
  SystemIsFull = 61017,                     // the system has as many groups as it can: limit
  EquipmentNotFound = 61018,                // the equipment was not found: nothing
  GenerationFailed = 61019,                 // a read or a write during generation failed: nothing
  ListNotBuilt = 61020,                     // a list of valid values could not be built: parameter
  DescribedListNotBuilt = 61021,            // a list of values and descriptions could not be built: parameter
  LIMNotCounted = 61022,                    // the groups of a LIM could not be counted: LIM
  LIMIsFull = 61023,                        // the LIM has as many groups as it can: limit
  InsertFailed = 61024,                     // a record could not be inserted: table
  LIMChangeRefused = 61025,                 // the capacity of the new LIM forbids the change: column
  CleanUpFailed = 61026,                    // the tables of used numbers could not be cleaned up: number or table
  SystemMembersNotCounted = 61027,          // the members of the system could not be counted: nothing
  SystemMembersFull = 61028,                // the system has as many members as it can: limit
  GroupMembersBeyondLimit = 61029,          // the group would go beyond its limit: group, count, number to add, limit
  SystemMembersBeyondLimit = 61030,         // the system would go beyond its limit: count, number to add, limit
  GroupMembersNotCounted = 61031,           // the members of the group could not be counted: group
  GroupIsFull = 61032,                      // the group is full: group, limit
  MembersRefusedByGroup = 61033,            // the limit of the group refuses the members: nothing
  MembersRefusedBySystem = 61034,           // the limit of the system refuses the members: nothing
  AddOfMembersStopped = 61035,              // the add of members stopped: nothing
  CodeInUse = 61036,                        // the code is in use: value
  NoNumberForName = 61037,                  // no number was given for the name: nothing
  StaticCheckFailed = 61038,                // a static check failed: parameter
  CordlessRecordNotAdded = 61040,           // a record was not added: value
  ValueTooShort = 61041,                    // the value is shorter than it may be: parameter, length
  ValueTooLong = 61042,                     // the value is longer than it may be: parameter, length
  ValueOutsideLimits = 61043,               // the value is outside its limits: column, smallest, largest
  ControlCharacterInText = 61044,           // a character below 33 is in the text: parameter
  RouterRefused = 61045,                    // the check of the router failed: nothing
  MaskMissing = 61046,                      // the mask is empty: nothing
  QuoteInText = 61048,                      // a quote character is in the text: parameter
  AddressRefused = 61049,                   // the check of the address failed: nothing
  AddressMissing = 61050,                   // the address is empty: nothing
  SameCategoryExists = 61051,               // another category has the same values: nothing
  TextTooLong = 61052,                      // the text is too long: parameter
  CallOriginInTheWay = 61053,               // a record stands in the way of the change: nothing
  StatementFailed = 62000,                  // a statement failed: nothing
  LIMMissing = 62004,                       // LIM has no value: column
  StartFailed = 62010,                      // a transaction could not be started: nothing
  CommitFailed = 62011,                     // a transaction could not be committed: nothing
  RollBackFailed = 62012,                   // a transaction could not be rolled back: nothing
  KeyNotFound = 62013,                      // a search through a list of keys ended with no hit: nothing
};

}  // namespace cordboard
