#include "fault/Irregularities.h"

namespace cordboard {

namespace {

// By command and action.
constexpr Silence silences[] = {
    {"ASPAC", "DeleteInfo", "DELETE * FROM ASPAC", "a record that cannot be deleted is not reported"},
    {"EXCCS", "SetInfo", "SELECT CMDID FROM EXCCS", "a category that cannot be looked up is not written"},
    {"EXCCS", "SetInfo", "SELECT TRAF, SERV", "stored values that cannot be read end the edit"},
    {"EXCCS", "EditInfo", "SELECT TRAF, SERV", "stored values that cannot be read end the edit"},
    {"KSANI", "GenerateCmd", "SELECT ITYPE FROM KSEXI", "an instrument that cannot be read ends the lines"},
    {"KSANI", "StatCheck", "SELECT ITYPE FROM KSEXI", "an instrument that cannot be read changes nothing"},
    {"KSANI", "StatCheck", "(\"ADC_D1\"", "the recheck of the first digit has no messages"},
    {"KSEXI", "GetValidValForParam", "SELECT LOCATION FROM LIMS", "a place that cannot be looked up has no message"},
    {"KSEXI", "StatCheck", "(\"ADC_D1\"", "the recheck of the first digit has no messages"},
    {"KSEXI", "StatCheck", "scResetParam(\"EQU\"", "a position that cannot be reset has no message"},
    {"KSEXI", "StatCheck", "scResetParam(\"LOCATION\"", "a place that cannot be reset has no message"},
    {"KSFKC", "GenerateCmd", "SELECT ITYPE FROM KSEXI", "an instrument that cannot be read ends the lines"},
    {"KSFKC", "GetValidValForParam", "SELECT Value, ValDesc", "keys that cannot be collected have no message"},
    {"KSFKC", "GetValidValForParam", "scGetValueArray(\"DIR\"", "extensions that cannot be delivered end the list"},
    {"KSFKC", "StatCheck", "scActiveDefinition(\"KEY\"", "a definition that is not taken has no message"},
    {"KSFKC", "StatCheck", "scResetParam", "the check of the instrument has no messages"},
    {"KSMDI", "SetInfo", "SELECT COUNT(*) FROM KSMDI", "a count that cannot be had goes to the debug window alone"},
    {"KSMDI", "DeleteInfo", "SELECT DIR, KEY FROM KSMDI", "a record that cannot be read is not reported"},
    {"KSMDI", "GenerateCmd", "SELECT ITYPE FROM KSEXI", "an instrument that cannot be read ends the lines"},
    {"KSMDI", "StatCheck", "scActiveDefinition(\"KEY\"", "a definition that is not taken has no message"},
    {"KSMDI", "StatCheck", "scSetParamOptional", "what has to be given changes without a message"},
    {"KSMDI", "StatCheck", "scResetParam(\"MDN\"", "a number that cannot be reset has no message"},
    {"NACDS", "SetInfo", "scGetValueArray(\"CDCAT\"", "categories that cannot be delivered end the add"},
    {"NANLS", "SetInfo", "scGetValueArray(\"EXL\"", "lengths that cannot be delivered end the add"},
    {"NANLS", "EditInfo", "SELECT MAX FROM NANLS", "a limit that cannot be read keeps its column from being written"},
    {"NANLS", "EditInfo", "SELECT MIN FROM NANLS", "a limit that cannot be read keeps its column from being written"},
    {"NANSI", "StatCheck", "", "the check of the number type changes what the form takes, and never sets its answer"},
    {"ROCAI", "EditInfo", "SELECT ROU, PROTOCOL, MARKET", "a record that cannot be read is not touched"},
    {"ROCAI", "DeleteInfo", "DELETE * FROM ROCAI", "only the read of the record has a message"},
    {"ROCAI", "DeleteInfo", "UPDATE ROUTE SET USED=FALSE", "only the read of the record has a message"},
    {"RODDI", "SetInfo", "Select * from RODDI", "a test for a duplicate that fails stops the add"},
    {"RODDI", "EditInfo", "SELECT DEST,CUST, CHO", "a record that cannot be read is not touched"},
    {"RODDI", "GetValidValForParam", "SELECT CUST FROM CUSTOMERS", "the list of customers has no message"},
    {"RODDI", "StatCheck", "scResetParam(\"CHO\"", "the answer is that of the last reset, which has no message"},
    {"SYDAS", "SetInfo", "SELECT NTC, PGJOB", "old values that cannot be read end the rewrite"},
    {"SYDAS", "EditInfo", "SELECT NTC, PGJOB", "old values that cannot be read end the edit"},
    {"SYIDI", "EditInfo", "", "a record that is gone ends the edit"},
    {"SYIDI", "DeleteInfo", "", "a record that is gone ends the delete"},
    {"SYTDS", "SetInfo", "SELECT CDNAL, CDNAS", "old values that cannot be read end the rewrite"},
    {"SYTDS", "EditInfo", "SELECT CDNAL, CDNAS", "old values that cannot be read end the edit"},
};

constexpr Irregularity commitWhateverHappened[] = {
    {"RODDI", "SetInfo", "what was added before a failure stays"},
    {"RODDI", "DeleteInfo", "the number is released after the delete, and a failure there stops nothing"},
};

constexpr Irregularity nest[] = {
    {"EXCCS", "EditInfo", "the additional numbers of the category are deleted by their own command"},
};

}  // namespace

std::span<const Silence> Silences() { return silences; }
std::span<const Irregularity> CommitWhateverHappened() { return commitWhateverHappened; }
std::span<const Irregularity> Nest() { return nest; }

}  // namespace cordboard
