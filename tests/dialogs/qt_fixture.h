#pragma once
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <cstdlib>

namespace norvane::testing {

// One offscreen QApplication for every dialog test of the program.
class DialogTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    if (QApplication::instance()) return;
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static int argc = 1;
    static char name[] = "dialogs_gui_test";
    static char* argv[] = {name, nullptr};
    new QApplication(argc, argv);
  }

  // Presses OK or Cancel of a dialog's button box, as the user would.
  template <typename Dialog>
  static void press(Dialog& dialog, QDialogButtonBox::StandardButton which) {
    auto* box = dialog.template findChild<QDialogButtonBox*>();
    ASSERT_NE(box, nullptr);
    box->button(which)->click();
  }

  template <typename W, typename Dialog>
  static W* control(Dialog& dialog, const char* id) {
    W* widget = dialog.template findChild<W*>(QString::fromLatin1(id));
    EXPECT_NE(widget, nullptr) << id;
    return widget;
  }
};

}  // namespace norvane::testing
