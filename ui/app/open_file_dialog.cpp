#include "ui/app/open_file_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace norvane {

QString ElementFileFolder(const std::string& lastOpen) {
  if (lastOpen.empty()) return {};
  const QString folder = QFileInfo(QString::fromStdString(lastOpen)).absolutePath();
  return QDir(folder).exists() ? folder : QString();
}

void ConfigureOpenDialog(QFileDialog& dialog, const std::string& lastOpen) {
  dialog.setWindowTitle(QStringLiteral("Open File"));
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::ExistingFile);
  // The filter's label keeps its short form; the patterns follow in the last brackets.
  dialog.setOption(QFileDialog::HideNameFilterDetails, true);
  dialog.setNameFilters({QString::fromLatin1(kElementFileFilter), QStringLiteral("OMM (*.csv *.json)"),
                         QStringLiteral("All files (*)")});
  dialog.setDefaultSuffix(QStringLiteral("tle"));
  if (const QString folder = ElementFileFolder(lastOpen); !folder.isEmpty()) dialog.setDirectory(folder);
}

}  // namespace norvane
