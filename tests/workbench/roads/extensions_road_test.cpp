// The commands of the family extensions as a user meets them, on a real exchange.

#include <gtest/gtest.h>

#include "support/Road.h"

namespace cordboard::workbench {
namespace {

// --- EXTEI.

TEST(EXTEIRoad, TODO) { GTEST_SKIP() << "TODO: add, list, change and delete a record as a user"; }

// --- EXTEITEMPLATE.

TEST(EXTEITEMPLATERoad, TODO) { GTEST_SKIP() << "TODO: add, list, change and delete a record as a user"; }

}  // namespace
}  // namespace cordboard::workbench
