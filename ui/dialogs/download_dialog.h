#pragma once
#include <QDialog>
#include <functional>
#include <string>

#include "download/element_download.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace norvane {

// "Download Latest TLE data": category combo1059, "Download" button1058, "Go to
// WebSite" button1043, the URL the chosen category is fetched from
// ("requestUrl") and a line that shows a running download's progress
// ("downloadStatus"). A download closes the dialog whatever its outcome; its
// messages go through the context's sink. While one runs, Download is
// disabled; OK, Cancel, Escape or closing the window stops it, and then
// nothing is loaded, saved or shown.
class DownloadDialog : public QDialog {
 public:
  // openSite is handed homePage when "Go to WebSite" is pressed.
  DownloadDialog(DownloadContext& context, DownloadTarget& target, std::string homePage,
                 std::function<void(const std::string&)> openSite, QWidget* parent = nullptr);

  void download();
  bool downloading() const { return running_; }
  const DownloadResult& downloadResult() const { return result_; }

  void done(int result) override;

 private:
  void showRequestUrl();

  DownloadContext& context_;
  DownloadTarget& target_;
  std::string homePage_;
  std::function<void(const std::string&)> openSite_;
  QComboBox* categories_;
  QPushButton* fetch_;
  QLabel* url_;
  QLabel* status_;
  DownloadResult result_;
  bool running_ = false;
};

// Shows the dialog with the desktop's browser for "Go to WebSite"; true when a
// download ran to an end (whatever it found).
bool runDownloadDialog(QWidget* parent, DownloadContext& context, DownloadTarget& target,
                       const std::string& homePage);

}  // namespace norvane
