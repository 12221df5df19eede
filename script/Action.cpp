#include "script/Action.h"

#include <cmath>

#include "script/Conversions.h"

namespace cordboard {

std::string Action::Parameter() const { return ToText(ParamList[0]); }

std::string Action::OrderNumber() const { return Joined(std::trunc(NumericValue(ParamList[0]))); }

}  // namespace cordboard
