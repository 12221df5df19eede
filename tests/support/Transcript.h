// What tests of a trace write again and again: the lines of the usual calls, and a call that has to fail.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "script/RunTimeFailure.h"

namespace cordboard {

// The statement as the host gets it, from how a trace shows it: {NL} becomes CR LF.
inline std::string AsSent(std::string shown) {
  for (std::size_t at = 0; (at = shown.find("{NL}", at)) != shown.npos;) shown.replace(at, 4, "\r\n");
  return shown;
}

// The lines of an action statement, of a query and of a message, whose code and arguments stand in one text.
inline std::string StatementLine(const std::string& shown) { return "scRunQuery(\"" + shown + "\")"; }
inline std::string QueryLine(const std::string& shown) { return "scRunQuery(\"" + shown + "\", out)"; }
inline std::string MessageLine(const std::string& context, const std::string& codeAndArguments) {
  return "scErrorMessage(0, 2, 2, \"" + context + "\", " + codeAndArguments + ")";
}

template <typename Call>
void ExpectFailure(RunTimeFailure::Cause cause, Call call) {
  try {
    call();
    ADD_FAILURE() << "the call did not fail";
  } catch (const RunTimeFailure& failure) {
    EXPECT_EQ(Name(failure.cause()), Name(cause)) << failure.what();
  }
}

}  // namespace cordboard
