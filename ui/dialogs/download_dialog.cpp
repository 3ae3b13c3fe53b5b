#include "ui/dialogs/download_dialog.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

#include "download/categories.h"
#include "ui/dialogs/dialog_support.h"

namespace norvane {

DownloadDialog::DownloadDialog(DownloadContext& context, DownloadTarget& target, std::string homePage,
                               std::function<void(const std::string&)> openSite, QWidget* parent)
    : QDialog(parent),
      context_(context),
      target_(target),
      homePage_(std::move(homePage)),
      openSite_(std::move(openSite)) {
  setWindowTitle(QStringLiteral("Download Latest TLE data"));
  categories_ = Named(new QComboBox(this), "combo1059");
  for (const Category& c : categories()) {
    categories_->addItem(QString::fromUtf8(c.label.data(), static_cast<qsizetype>(c.label.size())));
  }
  categories_->setCurrentIndex(kFirstShownCategory);
  auto* fetch = Named(new QPushButton(QStringLiteral("Download"), this), "button1058");
  auto* site = Named(new QPushButton(QStringLiteral("Go to WebSite"), this), "button1043");
  auto* server = new QLabel(QString::fromStdString(context.serverBase), this);
  connect(fetch, &QPushButton::clicked, this, [this] { download(); });
  connect(site, &QPushButton::clicked, this, [this] {
    if (openSite_) openSite_(homePage_);
  });
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(categories_);
  layout->addWidget(fetch);
  layout->addWidget(server);
  layout->addWidget(site);
  layout->addWidget(buttons);
}

void DownloadDialog::download() {
  const int row = categories_->currentIndex();
  if (row < 0 || row >= kCategoryCount) return;  // stays open
  result_ = downloadCategory(row, context_, target_);
  done(QDialog::Accepted);
}

bool runDownloadDialog(QWidget* parent, DownloadContext& context, DownloadTarget& target,
                       const std::string& homePage) {
  DownloadDialog dialog(context, target, homePage,
                        [](const std::string& url) { QDesktopServices::openUrl(QUrl(QString::fromStdString(url))); },
                        parent);
  dialog.exec();
  return dialog.downloadResult().status != DownloadStatus::NotStarted;
}

}  // namespace norvane
