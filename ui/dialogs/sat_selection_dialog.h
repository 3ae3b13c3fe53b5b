#pragma once
#include <QDialog>
#include <cstdint>

#include "core/elements/catalogue.h"
#include "core/platform/message_sink.h"
#include "ui/views/app_state.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace norvane {

// "Sat selection": ticks which satellites are shown and picks the current one.
// Controls: "Sel./Desel." button1029, count edit1004, list1021 (sorted by name,
// check boxes). "Sel./Desel." changes catalogue.selected and the current
// satellite at once; OK applies the ticks and the highlighted row.
class SatSelectionDialog : public QDialog {
 public:
  SatSelectionDialog(Catalogue& catalogue, AppState& app, QWidget* parent = nullptr);

  void accept() override;
  QTreeWidget* list() const { return list_; }

 private:
  void fillList();
  void toggleAll();
  static int slotOfRow(const QTreeWidgetItem* item);

  Catalogue& catalogue_;
  AppState& app_;
  QTreeWidget* list_ = nullptr;
  std::int32_t toggle_ = 1;  // 1: "Sel./Desel." deselects next
};

// Shows "Sat selection"; true when closed with OK.
bool runSatSelectionDialog(QWidget* parent, Catalogue& catalogue, AppState& app);

// "Tle info": the current satellite's elements in a box titled "Tle info".
void showTleInfo(const Catalogue& catalogue, const AppState& app, MessageSink& messages);

}  // namespace norvane
