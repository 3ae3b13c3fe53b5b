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
  fetch_ = Named(new QPushButton(QStringLiteral("Download"), this), "button1058");
  auto* site = Named(new QPushButton(QStringLiteral("Go to WebSite"), this), "button1043");
  url_ = Named(new QLabel(this), "requestUrl");
  url_->setWordWrap(true);
  url_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  status_ = Named(new QLabel(this), "downloadStatus");
  showRequestUrl();
  connect(categories_, &QComboBox::currentIndexChanged, this, [this] { showRequestUrl(); });
  connect(fetch_, &QPushButton::clicked, this, [this] { download(); });
  connect(site, &QPushButton::clicked, this, [this] {
    if (openSite_) openSite_(homePage_);
  });
  auto* buttons = OkCancelButtons(this);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(categories_);
  layout->addWidget(fetch_);
  layout->addWidget(url_);
  layout->addWidget(status_);
  layout->addWidget(site);
  layout->addWidget(buttons);
}

void DownloadDialog::showRequestUrl() {
  const int row = categories_->currentIndex();
  if (row < 0 || row >= kCategoryCount) {
    url_->clear();
    return;
  }
  url_->setText(QString::fromStdString(categoryUrl(context_.serverBase, categories()[static_cast<std::size_t>(row)].fileName)));
}

void DownloadDialog::download() {
  const int row = categories_->currentIndex();
  if (row < 0 || row >= kCategoryCount || running_) return;  // stays open
  running_ = true;
  fetch_->setEnabled(false);
  categories_->setEnabled(false);
  status_->setText(QStringLiteral("Connecting..."));
  DownloadContext context = context_;
  context.progress = [this](std::size_t bytes) {
    status_->setText(QStringLiteral("Downloading: %1 bytes received").arg(static_cast<qulonglong>(bytes)));
  };
  result_ = downloadCategory(row, context, target_);
  running_ = false;
  fetch_->setEnabled(true);
  categories_->setEnabled(true);
  status_->clear();
  // A cancelled download has already closed the dialog (or the program is quitting).
  if (result_.status != DownloadStatus::Cancelled) done(QDialog::Accepted);
}

void DownloadDialog::done(int result) {
  // OK, Cancel, Escape and the window's close all end here: a running download goes with the dialog.
  if (running_) context_.http.cancel();
  QDialog::done(result);
}

bool runDownloadDialog(QWidget* parent, DownloadContext& context, DownloadTarget& target,
                       const std::string& homePage) {
  DownloadDialog dialog(context, target, homePage,
                        [](const std::string& url) { QDesktopServices::openUrl(QUrl(QString::fromStdString(url))); },
                        parent);
  dialog.exec();
  const DownloadStatus status = dialog.downloadResult().status;
  return status != DownloadStatus::NotStarted && status != DownloadStatus::Cancelled;
}

}  // namespace norvane
