#pragma once
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <cstdlib>
#include <vector>

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

  // Every heading and row text fits its column, and the shown list has room
  // for all columns side by side.
  static void expectColumnsWhole(QTreeWidget& list) {
    const QFontMetrics metrics(list.font());
    for (int c = 0; c < list.columnCount(); ++c) {
      const int width = list.header()->sectionSize(c);
      EXPECT_LE(metrics.horizontalAdvance(list.headerItem()->text(c)), width) << c;
      for (int r = 0; r < list.topLevelItemCount(); ++r) {
        EXPECT_LE(metrics.horizontalAdvance(list.topLevelItem(r)->text(c)), width) << c << " row " << r;
      }
    }
    EXPECT_GE(list.viewport()->width(), list.header()->length());
  }

  // The numbers of a column from the top row down; texts that are no number are left out.
  static std::vector<double> columnNumbers(const QTreeWidget& list, int column) {
    std::vector<double> out;
    for (int r = 0; r < list.topLevelItemCount(); ++r) {
      bool ok = false;
      const double value = list.topLevelItem(r)->text(column).toDouble(&ok);
      if (ok) out.push_back(value);
    }
    return out;
  }

  template <typename W, typename Dialog>
  static W* control(Dialog& dialog, const char* id) {
    W* widget = dialog.template findChild<W*>(QString::fromLatin1(id));
    EXPECT_NE(widget, nullptr) << id;
    return widget;
  }
};

}  // namespace norvane::testing
