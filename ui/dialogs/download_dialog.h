#pragma once
#include <QDialog>
#include <functional>
#include <string>

#include "download/element_download.h"

class QComboBox;

namespace norvane {

// "Download Latest TLE data": category combo1059, "Download" button1058, "Go to
// WebSite" button1043 and a line naming the server. A download closes the
// dialog whatever its outcome; its messages go through the context's sink.
class DownloadDialog : public QDialog {
 public:
  // openSite is handed homePage when "Go to WebSite" is pressed.
  DownloadDialog(DownloadContext& context, DownloadTarget& target, std::string homePage,
                 std::function<void(const std::string&)> openSite, QWidget* parent = nullptr);

  void download();
  const DownloadResult& downloadResult() const { return result_; }

 private:
  DownloadContext& context_;
  DownloadTarget& target_;
  std::string homePage_;
  std::function<void(const std::string&)> openSite_;
  QComboBox* categories_;
  DownloadResult result_;
};

// Shows the dialog with the desktop's browser for "Go to WebSite"; true when a
// download ran (whatever it found).
bool runDownloadDialog(QWidget* parent, DownloadContext& context, DownloadTarget& target,
                       const std::string& homePage);

}  // namespace norvane
