#include "shared/ValueLists.h"

#include "script/Conversions.h"
#include "script/Report.h"
#include "script/Text.h"

namespace cordboard {

namespace {

// A list of values and descriptions from a table of the configuration, reported under the provider's name.
bool Collect(const Action& action, const std::string& provider, const std::string& sql) {
  return scCollectValuesAndDesc(sql, "dynamic") || Reporter(provider)(DescribedListNotBuilt, action.Parameter());
}

}  // namespace

bool ListRefused(const Action& action) { return Reporter("GetValidValForParam")(ListNotBuilt, action.Parameter()); }

bool DescribedListRefused(const Action& action) {
  return Reporter("GetValidValForParam")(DescribedListNotBuilt, action.Parameter());
}

bool CollectList(const Action& action, const std::string& sql) {
  return scCollectSingleValues(sql) || ListRefused(action);
}

bool PushWholeNumbers(int from, int to) {
  List numbers(std::vector<Value>{});
  for (int number = from; number <= to; ++number) numbers.Append(number);
  return scPushValidValues(numbers);
}

bool GetValuesAndDescription(const Action& action) {
  return scSQLSelectValuesAndDesc() || Reporter("GetValuesAndDescription")(DescribedListNotBuilt, action.Parameter());
}

// Reports under the name of its sibling.
bool GetValuesAndDescriptionByDefinition(const Action& action) {
  return scSQLSelectValuesAndDescByDefinition(action.Definition) ||
         Reporter("GetValuesAndDescription")(DescribedListNotBuilt, action.Parameter());
}

bool GetValuesFor_CUST(const Action& action) {
  return Collect(action, "GetValuesFor_CUST",
                 Sql("SELECT CUST, DESCRIPTION ", NL, " FROM CUSTOMERS ", NL, " ORDER BY VAL(CUST)"));
}

bool GetValuesFor_LOCATION(const Action& action) {
  return Collect(action, "GetValuesFor_LOCATION",
                 Sql("SELECT Location, Description ", NL, " FROM Locations ", NL, " ORDER BY Location"));
}

bool CollectLIMs() {
  const Value LOCATION = scGetParamValue("LOCATION");
  return scCollectValuesAndDesc(LOCATION.IsEmpty() ? Sql("SELECT LIM, Description FROM LIMs ", NL, " ORDER BY LIM")
                                                   : Sql("SELECT LIM, Description FROM LIMs ", NL,
                                                         " WHERE Location = '", LOCATION, "'", NL, " ORDER BY LIM"),
                                "dynamic");
}

bool GetValuesFor_LIM(const Action& action) {
  return CollectLIMs() || Reporter("GetValuesFor_LIM")(DescribedListNotBuilt, action.Parameter());
}

// No blank stands before ORDER BY.
bool GetValuesFor_CAT(const Action& action) {
  return Collect(action, "GetValuesFor_CAT",
                 Sql("SELECT CAT, DESCRIPTION ", NL, " FROM EXCCS ", NL, "WHERE NOT (SERV IS Null)ORDER BY VAL(CAT) "));
}

// The answer, and so the report, is that of the last operation: with a table, a collection that failed goes unseen.
bool GetValuesFor_CORG(const Action& action, const std::string& table) {
  bool flag = scCollectValuesAndDesc(Sql("SELECT DISTINCT CORG, DESCRIPTION ", NL, " FROM OPCTS ", NL), "dynamic");
  if (!table.empty()) flag = scSubtractSingleValues(Sql("SELECT CORG FROM ", table));
  return flag || Reporter("GetValuesFor_CORG")(DescribedListNotBuilt, action.Parameter());
}

bool GetValuesFor_CSP(const Action& action) {
  return Collect(action, "GetValuesFor_CSP", Sql("SELECT CSP, DESCRIPTION ", NL, " FROM GESPI ", NL, " ORDER BY CSP "));
}

bool GetValuesFor_ROU(const Action& action) {
  return Collect(action, "GetValuesFor_ROU", Sql("SELECT ROU, DESCRIPTION FROM ROCAI ", NL, "ORDER BY VAL(ROU) "));
}

bool ListFreeNumbers(const Action& action, const char* NUMTYP) {
  return CollectList(action, Sql(" SELECT NUMSE FROM NANSI ", NL, " WHERE NUMTYP = '", NUMTYP, "' ", NL,
                                 " AND USED = FALSE ", NL, " ORDER BY NUMSE"));
}

bool GetValuesFor_EX(const Action& action) { return ListFreeNumbers(action, "EX"); }

// The LIM is the first three characters of the position, without leading zeros. One that cannot be read answers False
// in silence; one that is in no location fails the call.
bool StatCheck_EQU_LOCATION(const Action&) {
  const Value EQU = scGetParamValue("EQU");
  std::string sql;
  if (EQU.IsEmpty()) {
    sql = Sql("SELECT Location, Description FROM Locations ", NL, " ORDER BY Location");
  } else {
    const std::int16_t LIM = ToInt16(TrimBlanks(Left(ToText(EQU), 3)));
    RowSet rows;
    if (!scRunQuery(Sql("SELECT LOCATION FROM LIMS WHERE LIM = '", LIM, "'"), rows)) return false;
    sql = Sql("SELECT LOCATION, DESCRIPTION ", NL, " FROM LOCATIONS WHERE LOCATION = '", rows[0][0], "'");
  }
  return scCollectValuesAndDesc(sql, "dynamic") ||
         Reporter("StatCheck_EQU_LOCATION")(DescribedListNotBuilt, "Location");
}

}  // namespace cordboard
