// IPBOI: IP boards: the address of a board in the data network, its mask and its router. No lines are generated.

#include <algorithm>
#include <cstdint>

#include "script/Conversions.h"
#include "script/Envelope.h"
#include "script/Module.h"
#include "script/Report.h"
#include "shared/BoardPositions.h"
#include "shared/GenericRecord.h"
#include "shared/Row.h"

namespace cordboard {

namespace {

const char* const notSet = "0.0.0.0";

// --- The list of BPOS.

// The slot 0 is written with two digits: no other slot, and in no other list.
bool ListBPOS(const Action& action) {
  const Reporter fail(action.CmdName + "GetValidValForParam: ");
  RowSet boards;
  if (!ReadBoards(fail, "113", boards)) return false;
  if (boards.IsEmpty()) return true;
  List positions;
  for (std::size_t i = 0; i < boards.RowCount(); ++i) {
    const Value& Slot = boards[2][i];
    positions.Append(BoardPosition(boards[0][i], boards[1][i], Joined(Slot) == "0" ? "00" : Slot));
  }
  return OfferBoardPositions(fail, positions, " SELECT BPOS FROM IPBOI");
}

// --- The subnet.

List PiecesOf(const std::string& address) {
  List pieces;
  for (std::size_t begin = 0; begin <= address.size();) {
    const std::size_t end = std::min(address.find('.', begin), address.size());
    pieces.Append(address.substr(begin, end - begin));
    begin = end + 1;
  }
  return pieces;
}

// The 32 bits of an address. Each of its first four pieces counts by the low eight bits of its leading digits; fewer
// pieces, and a number beyond 32 bits, fail the call, and what follows the four is not read.
std::uint32_t Bits(const Value& address) {
  const List pieces = PiecesOf(ToText(address));
  std::uint32_t bits = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    const auto number = static_cast<std::uint32_t>(ToInt32(NumericValue(pieces[i])));
    bits = bits << 8 | (number & 0xFF);
  }
  return bits;
}

// Whether the mask leaves the same of the address as of the router. Reads all three anew.
bool IsInSubnetOfRouter() {
  const Value ROUTER = scGetParamValue("ROUTER");
  const Value IP = scGetParamValue("IP");
  const Value MASK = scGetParamValue("MASK");
  const std::uint32_t router = Bits(ROUTER);
  const std::uint32_t address = Bits(IP);
  const std::uint32_t mask = Bits(MASK);
  return (address & mask) == (router & mask);
}

// With a router the subnet alone decides: an address or a mask that is not set is reported, and passes all the same
// where the router is in the subnet. A router is everything but the empty state and 0.0.0.0: a blank one fails the
// call.
bool CheckAddresses(const Reporter& fail, const Reporter& failOnRouter) {
  const Value ROUTER = scGetParamValue("ROUTER");
  const Value MASK = scGetParamValue("MASK");
  const Value IP = scGetParamValue("IP");
  bool flag = true;
  if (Equals(IP, notSet)) flag = fail(AddressMissing);
  if (Equals(MASK, notSet)) flag = fail(MaskMissing);
  if (!ROUTER.IsEmpty() && !Equals(ROUTER, notSet)) flag = IsInSubnetOfRouter() || failOnRouter(RouterRefused);
  return flag;
}

// --- Add and edit. No two boards have the same address.

bool FindAddress(const Value& IP, bool& found) {
  RowSet rows;
  const bool read = scRunQuery(Sql("SELECT IP FROM IPBOI", NL, "WHERE IP = '", IP, "'"), rows);
  found = read && !rows.IsEmpty();
  return read;
}

// The identifier is drawn before the address is looked up, where it stands in front of it. Addresses that cannot be
// read hold nobody up.
bool Insert(const Action& action, const Reporter& fail) {
  List values(std::vector<Value>{});
  for (const Value& column : action.ParamList) {
    const std::string name = ToText(column);
    const Value value = name == "CMDID" ? scBuildCmdID() : scGetParamValue(name);
    values.Append(value);
    bool found = false;
    if (name == "IP") FindAddress(value, found);
    if (found) return fail(AddressRefused);
  }
  return scSQLInsert(action.CmdName, action.ParamList, values) || fail(InsertFailed, action.CmdName);
}

bool Add(const Action& action) {
  const Reporter fail("Add: " + action.CmdName);
  action.ParamList.RequireBounds();  // before the transaction
  return InTransaction(fail, [&] { return CheckAddresses(fail, fail) && Insert(action, fail); });
}

// The record's own address counts as taken, so that an edit has to leave IP out or change it. Addresses that cannot be
// read end the edit in silence.
bool EditParameter(const Action& action, const Reporter& fail, const std::string& name) {
  const Value value = scGetParamValue(name);
  if (name != "IP") {
    return UpdateColumnOrNull(action.CmdName, action.CmdId, name, value) || fail(ColumnNotWritten, name);
  }
  bool found = false;
  if (!FindAddress(value, found)) return false;
  if (found) return fail(AddressRefused);
  return UpdateColumn(action.CmdName, action.CmdId, "IPBOI.IP", value) || fail(ColumnNotWritten, name);
}

// A router outside the subnet is reported as by a check.
bool Edit(const Action& action) {
  const Reporter fail("Edit: " + action.CmdName);
  return InTransaction(fail, [&] {
    if (!CheckAddresses(fail, Reporter("StatCheck"))) return false;
    for (const Value& parameter : action.ParamList) {
      if (!EditParameter(action, fail, ToText(parameter))) return false;
    }
    return true;
  });
}

}  // namespace

extern const Module IPBOI{
    .SetInfo = Add,
    .EditInfo = Edit,
    .DeleteInfo = GenericDeleteInfo,
    .ValidValues = {{"BPOS", ListBPOS}},
};

}  // namespace cordboard
