#include "ui/dialogs/sat_selection_dialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "core/elements/element_info.h"
#include "core/propagation/propagate.h"
#include "ui/dialogs/dialog_support.h"

namespace norvane {
namespace {

enum Column { kName = 0, kCatnr, kElement, kEpoch, kSlot };

}  // namespace

SatSelectionDialog::SatSelectionDialog(Catalogue& catalogue, AppState& app, QWidget* parent)
    : QDialog(parent), catalogue_(catalogue), app_(app) {
  setWindowTitle(QStringLiteral("Sat selection"));
  auto* toggle = Named(new QPushButton(QStringLiteral("Sel./Desel."), this), "button1029");
  auto* count = Named(new QLineEdit(this), "edit1004");
  count->setEnabled(false);
  count->setMaximumWidth(48);
  count->setText(QString::number(catalogue.satelliteCount));

  list_ = Named(new QTreeWidget(this), "list1021");
  list_->setRootIsDecorated(false);
  list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list_->setHeaderLabels({QStringLiteral("Sel./Sat"), QStringLiteral("Cat #"), QStringLiteral("Element #"),
                          QStringLiteral("Epoch"), QStringLiteral("In file #")});
  list_->setMinimumHeight(240);

  auto* buttons = OkCancelButtons(this);
  connect(toggle, &QPushButton::clicked, this, [this] { toggleAll(); });

  auto* top = new QHBoxLayout;
  top->addWidget(toggle);
  top->addStretch();
  top->addWidget(count);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(list_);
  layout->addWidget(buttons);
  fillList();
}

int SatSelectionDialog::slotOfRow(const QTreeWidgetItem* item) { return LeadingInt(item->text(kSlot)); }

void SatSelectionDialog::fillList() {
  const int count = std::min(std::max(catalogue_.satelliteCount, 0), kCatalogueSlots);
  for (int i = 0; i < count; ++i) {
    const SelectionRowTexts t = FormatSelectionRow(catalogue_, i, app_.currentTime);
    auto* row = new SortableRow(QStringList{Latin1(t.name), Latin1(t.catnr), Latin1(t.elementNumber),
                                            Latin1(t.epoch), Latin1(t.slot)});
    const Satellite& sat = catalogue_.satellites[static_cast<std::size_t>(i)];
    row->setSortKey(kCatnr, sat.catnr);
    row->setSortKey(kElement, LeadingInt(row->text(kElement)));
    row->setSortKey(kEpoch, epochToJulian(sat.epoch));
    row->setSortKey(kSlot, i);
    row->setFlags(row->flags() | Qt::ItemIsUserCheckable);
    row->setCheckState(kName, Qt::Unchecked);
    list_->addTopLevelItem(row);
  }
  list_->setSortingEnabled(true);
  list_->sortByColumn(kName, Qt::AscendingOrder);
  FitColumns(*list_);
  // Rows are found by their "In file #" text, never by position: the list is sorted.
  for (int r = 0; r < list_->topLevelItemCount(); ++r) {
    QTreeWidgetItem* row = list_->topLevelItem(r);
    const int slot = slotOfRow(row);
    if (slot >= 0 && slot < kSelectionFlags && catalogue_.selected[static_cast<std::size_t>(slot)] == 1) {
      row->setCheckState(kName, Qt::Checked);
    }
  }
}

void SatSelectionDialog::toggleAll() {
  const bool select = toggle_ != 1;
  const int rows = list_->topLevelItemCount();
  for (int r = 0; r < rows; ++r) {
    list_->topLevelItem(r)->setCheckState(kName, select ? Qt::Checked : Qt::Unchecked);
    // Indexed by row position: for all rows together the same set of slots.
    if (r < kSelectionFlags) catalogue_.selected[static_cast<std::size_t>(r)] = select ? 1 : 0;
  }
  toggle_ = select ? 1 : 0;
  app_.currentSatellite = 0;
  list_->viewport()->update();
}

void SatSelectionDialog::accept() {
  catalogue_.selected.fill(0);
  const int rows = list_->topLevelItemCount();
  for (int r = 0; r < rows; ++r) {
    const QTreeWidgetItem* row = list_->topLevelItem(r);
    if (row->checkState(kName) != Qt::Checked) continue;
    const int slot = slotOfRow(row);
    if (slot < 0 || slot >= kSelectionFlags) continue;
    catalogue_.selected[static_cast<std::size_t>(slot)] = 1;
    app_.currentSatellite = slot;
  }
  for (int r = 0; r < rows; ++r) {
    const QTreeWidgetItem* row = list_->topLevelItem(r);
    if (!row->isSelected()) continue;
    const int slot = slotOfRow(row);
    if (slot >= 0 && slot < kSelectionFlags && catalogue_.selected[static_cast<std::size_t>(slot)] == 1) {
      app_.currentSatellite = slot;
    }
  }
  QDialog::accept();
}

bool runSatSelectionDialog(QWidget* parent, Catalogue& catalogue, AppState& app) {
  SatSelectionDialog dialog(catalogue, app, parent);
  return dialog.exec() == QDialog::Accepted;
}

void showTleInfo(const Catalogue& catalogue, const AppState& app, MessageSink& messages) {
  const int slot = app.currentSatellite >= 0 && app.currentSatellite < kCatalogueSlots ? app.currentSatellite : 0;
  messages.show(TleInfoText(catalogue.satellites[static_cast<std::size_t>(slot)]), kTleInfoTitle,
                MessageIcon::Information);
}

}  // namespace norvane
