#pragma once
#include "core/text/format.h"
#include <QDialog>
#include <QDialogButtonBox>
#include <QString>
#include <QStringList>
#include <QTreeWidget>
#include <QWidget>
#include <cstdio>
#include <string>

namespace norvane {

// printf-style text of any length.
template <typename... Args>
std::string FormatText(const char* pattern, Args... args) {
  return format(pattern, args...);
}

// Texts of the program are plain bytes (names from element files may hold
// any of them): each byte is one character.
inline QString Latin1(const std::string& text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

// Gives a control its dialog id ("edit1001") as object name.
template <typename W>
W* Named(W* widget, const char* id) {
  widget->setObjectName(QString::fromLatin1(id));
  return widget;
}

// OK and Cancel for a dialog, wired to its accept() and reject().
QDialogButtonBox* OkCancelButtons(QDialog* dialog);

// A list row that sorts a column by its number where the row gives it one
// (setSortKey), and by text without regard to case elsewhere.
class SortableRow : public QTreeWidgetItem {
 public:
  using QTreeWidgetItem::QTreeWidgetItem;
  void setSortKey(int column, double key);
  bool operator<(const QTreeWidgetItem& other) const override;
};

// Widens every column of a list to its heading, its rows and the sample text
// of that column (for lists that fill later), and the list so that every
// column shows whole, as far as the screen's width allows.
void FitColumns(QTreeWidget& list, const QStringList& samples = {});

// The leading integer of a text as a C library scan would read it ("%d"); 0 when there is none.
int LeadingInt(const QString& text);
// The leading decimal number of a text; 0.0 when there is none.
double LeadingDouble(const QString& text);

}  // namespace norvane
