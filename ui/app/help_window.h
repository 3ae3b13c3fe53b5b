#pragma once
#include <QTextBrowser>
#include <string>

namespace norvane {

// Help.htm in a window of the program, its pictures read from beside it;
// links to the web go to the desktop's browser.
class HelpWindow : public QTextBrowser {
 public:
  explicit HelpWindow(QWidget* parent = nullptr);
  // Shows the page at path (a file), or says that it is missing.
  void showPage(const std::string& path);
};

}  // namespace norvane
