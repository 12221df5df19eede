#include "com/Failure.h"

#include <gtest/gtest.h>

#include <new>

#include "com/Pointer.h"
#include "com/support/Client.h"

namespace cordboard::com {
namespace {

using Cause = RunTimeFailure::Cause;

HRESULT AnswerTo(Cause cause) {
  return Guarded([cause] { throw RunTimeFailure(cause, "w\u00F6rds"); });
}

TEST(Failure, EveryCauseHasItsNumberAndItsWords) {
  const std::pair<Cause, ULONG> numbers[] = {
      {Cause::Overflow, 0x800A0006},     {Cause::SubscriptOutOfRange, 0x800A0009},
      {Cause::TypeMismatch, 0x800A000D}, {Cause::InvalidUseOfNull, 0x800A005E},
      {Cause::InvalidCall, 0x800A0005},  {Cause::NoHost, 0x800A005B},
      {Cause::HostFailure, 0x80040201},
  };
  for (const auto& [cause, number] : numbers) {
    EXPECT_EQ(static_cast<ULONG>(AnswerTo(cause)), number) << Name(cause);
    EXPECT_EQ(LastError(), "Cordboard.CScript: w\u00F6rds");
  }
}

TEST(Failure, WorkThatIsDoneIsASuccess) {
  EXPECT_EQ(Guarded([] {}), S_OK);
}

TEST(Failure, NoOtherExceptionGetsOut) {
  EXPECT_EQ(Guarded([] { throw std::bad_alloc(); }), E_OUTOFMEMORY);
  EXPECT_EQ(Guarded([] { throw std::runtime_error("other"); }), E_FAIL);
  EXPECT_EQ(LastError(), "Cordboard.CScript: other");
  EXPECT_EQ(Guarded([] { throw 7; }), E_UNEXPECTED);
}

}  // namespace
}  // namespace cordboard::com
