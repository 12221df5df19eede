#include "script/MessageBox.h"

#include <gtest/gtest.h>

#include <functional>

namespace cordboard {
namespace {

std::string OnStandardError(const std::function<void()>& show) {
  testing::internal::CaptureStderr();
  show();
  return testing::internal::GetCapturedStderr();
}

TEST(MessageBox, GoesToStandardErrorByDefaultWithItsTitleInFront) {
  EXPECT_EQ(OnStandardError([] { ShowMessageBox("Cannot delete", "Error", InformationBox); }),
            "Error: Cannot delete\n");
  EXPECT_EQ(OnStandardError([] { ShowMessageBox(" SHOULDNT GET HERE... ", "", PlainBox); }),
            " SHOULDNT GET HERE... \n");
}

TEST(MessageBox, GoesToAHookInsteadUntilTheDefaultIsRestored) {
  std::string shown;
  SetMessageBox([&shown](const std::string& text, const std::string& title, int style) {
    shown += text + "|" + title + "|" + std::to_string(style);
  });
  EXPECT_EQ(OnStandardError([] { ShowMessageBox("Cannot delete", "Error", InformationBox); }), "");
  EXPECT_EQ(shown, "Cannot delete|Error|64");

  SetMessageBox(nullptr);
  EXPECT_EQ(OnStandardError([] { ShowMessageBox("again", "", PlainBox); }), "again\n");
  EXPECT_EQ(shown, "Cannot delete|Error|64");
}

TEST(MessageBox, GivesTheHookBackThatWasThere) {
  int first = 0;
  int second = 0;
  EXPECT_FALSE(SetMessageBox([&first](const auto&, const auto&, int) { ++first; }));
  MessageBoxHook before = SetMessageBox([&second](const auto&, const auto&, int) { ++second; });
  ShowMessageBox("", "", PlainBox);
  SetMessageBox(before);
  ShowMessageBox("", "", PlainBox);
  ShowMessageBox("", "", PlainBox);
  EXPECT_TRUE(SetMessageBox(nullptr));
  EXPECT_EQ(first, 2);
  EXPECT_EQ(second, 1);
}

}  // namespace
}  // namespace cordboard
