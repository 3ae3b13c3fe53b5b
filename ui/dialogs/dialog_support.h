#pragma once
#include "core/text/format.h"
#include <QString>
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

// The leading integer of a text as a C library scan would read it ("%d"); 0 when there is none.
int LeadingInt(const QString& text);
// The leading decimal number of a text; 0.0 when there is none.
double LeadingDouble(const QString& text);

}  // namespace norvane
