#include "ui/app/about_dialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

namespace norvane {

AboutDialog::AboutDialog(QWidget* parent) : QDialog(parent) {
  setWindowTitle("About");
  setObjectName("dialog130");
  auto* layout = new QVBoxLayout(this);
  auto* name = new QLabel("Norvane", this);
  QFont font = name->font();
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * 1.4);
  name->setFont(font);
  name->setObjectName("product");
  auto* version = new QLabel("v. 1.47", this);
  version->setObjectName("version");
  auto* what = new QLabel("Satellite tracker: where the satellites are, now or at any time.", this);
  what->setWordWrap(true);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  layout->addWidget(name);
  layout->addWidget(version);
  layout->addWidget(what);
  layout->addWidget(buttons);
}

}  // namespace norvane
