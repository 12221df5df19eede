#include "com/PlainBox.h"

#include <gtest/gtest.h>

#include "script/MessageBox.h"

namespace cordboard::com {
namespace {

TEST(PlainBox, WhereNobodySeesItTheTextIsWrittenAndNothingWaits) {
  testing::internal::CaptureStderr();
  ShowPlainBox("Cannot delete", "Error", InformationBox);
  ShowPlainBox(" SHOULDNT GET HERE... ", "", PlainBox);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error: Cannot delete\n SHOULDNT GET HERE... \n");
}

TEST(PlainBox, TheHookCanBeReplaced) {
  std::string shown;
  SetMessageBox(ShowPlainBox);
  const MessageBoxHook before =
      SetMessageBox([&shown](const std::string& text, const std::string& title, int) { shown = title + "/" + text; });
  ShowMessageBox("text", "title", PlainBox);
  EXPECT_EQ(shown, "title/text");
  SetMessageBox(before);
  testing::internal::CaptureStderr();
  ShowMessageBox("text", "title", PlainBox);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "title: text\n");
  SetMessageBox(nullptr);
}

}  // namespace
}  // namespace cordboard::com
