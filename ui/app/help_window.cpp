#include "ui/app/help_window.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QUrl>
#include <algorithm>

namespace norvane {

HelpWindow::HelpWindow(QWidget* parent) : QTextBrowser(parent) {
  setWindowFlag(Qt::Window);
  setObjectName(QStringLiteral("help"));
  setWindowTitle(QStringLiteral("Norvane help"));
  setOpenExternalLinks(true);
  QSize size(560, 720);
  if (const QScreen* s = parent != nullptr ? parent->screen() : QGuiApplication::primaryScreen()) {
    const QRect room = s->availableGeometry();
    size = size.boundedTo(QSize(room.width() * 9 / 10, room.height() * 9 / 10));
  }
  resize(size);
}

void HelpWindow::showPage(const std::string& path) {
  const QString file = QString::fromStdString(path);
  if (QFileInfo(file).isFile()) {
    setSource(QUrl::fromLocalFile(file));
    if (!documentTitle().isEmpty()) setWindowTitle(documentTitle());
  } else {
    setHtml(QStringLiteral("<p>The help file %1 is missing.</p>").arg(file.toHtmlEscaped()));
  }
  show();
  raise();
  activateWindow();
}

}  // namespace norvane
