#include "shared/KeySpace.h"

#include "script/Conversions.h"
#include "script/Report.h"

namespace cordboard {

namespace {

// The leading digits, where null counts as no digits.
double Number(const Value& ITYPE) { return NumericValue(Joined(ITYPE)); }

}  // namespace

double KeyDefinition(const Value& ITYPE) { return Number(ITYPE) + 1; }

bool SelectITYPE(const Value& DIR, RowSet& rows) {
  return scRunQuery(Sql("SELECT ITYPE FROM KSEXI WHERE DIR = '", DIR, "'"), rows);
}

std::vector<Value> Given(const List& DIRs) {
  std::vector<Value> given;
  for (const Value& DIR : DIRs) {
    if (!DIR.IsNull() && !DIR.IsEmpty()) given.push_back(DIR);
  }
  return given;
}

bool InsertKeyLines(const Reporter& fail, const Action& action, const RowSet& rows, std::size_t DIR, bool flag,
                    const KeyLine& line) {
  Value ITYPE;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const LineRow fields(rows, row);
    RowSet instrument;
    if (!SelectITYPE(fields[DIR], instrument)) return false;
    if (!instrument.IsEmpty()) ITYPE = instrument[0][0];
    flag = InsertLine(fail, action, line(fields, ITYPE));
  }
  return flag;
}

bool SubtractTakenKeys(const Action& action, const Value& DIR, const std::string& keysWithFunction) {
  const Reporter fail("GetValidValForParam");
  const bool subtracted = scSubtractSingleValues(keysWithFunction) &&
                          scSubtractSingleValues(Sql("SELECT KEY FROM KSANI WHERE DIR = '", DIR, "'")) &&
                          scSubtractSingleValues(Sql("SELECT KEY FROM KSMDI WHERE DIR = '", DIR, "'"));
  if (!subtracted) return fail(DescribedListNotBuilt, action.Parameter());

  // A count that was not given counts as 0.
  Value count;
  const bool counted = scGetNumberOfValidValues("KEY", action.Definition, count);
  if (Equals(count, 0)) {
    Debug("There are no available keys for this DIR");
    return fail(NoAvailableKeys, DIR);
  }
  return counted;
}

std::string ComposeDIRK(const Value& DIR, const Value& KEY) { return Text(DIR, "-", KEY); }

void SplitDIRK(const Value& DIRK, std::string& DIR, std::string& KEY) {
  const std::string text = ToText(DIRK);
  const std::size_t end = text.find('-');
  DIR = text.substr(0, end);
  KEY = end == text.npos ? "" : text.substr(end + 1);
}

std::string ReleaseOfFixedKey(const Value& ITYPE, const Value& DIR, const Value& KEY) {
  const double instrument = Number(ITYPE);
  const auto is = [&](const char* fixed) { return Equals(KEY, fixed); };
  const bool fixed =
      instrument >= 9 && instrument <= 12 ? is("12") || is("13") : is("1") || is("2") || is("A1") || is("A2");
  return fixed ? Text("KSFKC:DIR=", DIR, ",KEY=", KEY, ",FCN=TNS;\n") : "";
}

}  // namespace cordboard
