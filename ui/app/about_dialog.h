#pragma once
#include <QDialog>

namespace norvane {

// "About": the product name and version.
class AboutDialog : public QDialog {
 public:
  explicit AboutDialog(QWidget* parent = nullptr);
};

}  // namespace norvane
