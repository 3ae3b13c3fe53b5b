#include "ui/dialogs/dialog_support.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>
#include <charconv>
#include <climits>

namespace norvane {
namespace {

// The text after leading blanks and a '+' sign, which from_chars does not take.
std::string_view numberStart(const QByteArray& bytes) {
  std::string_view text(bytes.constData(), static_cast<std::size_t>(bytes.size()));
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  return text;
}

constexpr int kSortKeyRole = Qt::UserRole + 1;

}  // namespace

QDialogButtonBox* OkCancelButtons(QDialog* dialog) {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dialog);
  QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
  return buttons;
}

void SortableRow::setSortKey(int column, double key) { setData(column, kSortKeyRole, key); }

bool SortableRow::operator<(const QTreeWidgetItem& other) const {
  const int column = treeWidget() != nullptr ? treeWidget()->sortColumn() : 0;
  const QVariant mine = data(column, kSortKeyRole);
  const QVariant theirs = other.data(column, kSortKeyRole);
  if (mine.isValid() && theirs.isValid()) return mine.toDouble() < theirs.toDouble();
  return text(column).compare(other.text(column), Qt::CaseInsensitive) < 0;
}

void FitColumns(QTreeWidget& list, const QStringList& samples) {
  const QFontMetrics metrics(list.font());
  const int margin = 2 * metrics.averageCharWidth();  // the text margins of a cell
  for (int c = 0; c < list.columnCount(); ++c) {
    list.resizeColumnToContents(c);  // rows and heading, sort arrow included
    if (c < samples.size()) {
      const int wanted = metrics.horizontalAdvance(samples[c]) + margin;
      if (wanted > list.header()->sectionSize(c)) list.header()->resizeSection(c, wanted);
    }
  }
  int width = list.header()->length() + 2 * list.frameWidth() + list.verticalScrollBar()->sizeHint().width();
  if (const QScreen* screen = list.screen()) width = std::min(width, screen->availableGeometry().width() * 9 / 10);
  list.setMinimumWidth(width);
}

// Parsed without the locale: the program's numbers always use a decimal point.
int LeadingInt(const QString& text) {
  const QByteArray bytes = text.toLatin1();
  const std::string_view digits = numberStart(bytes);
  long long value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  (void)end;
  if (error == std::errc::result_out_of_range || value > INT_MAX || value < INT_MIN) {
    return !digits.empty() && digits.front() == '-' ? INT_MIN : INT_MAX;
  }
  return error == std::errc{} ? static_cast<int>(value) : 0;
}

double LeadingDouble(const QString& text) {
  const QByteArray bytes = text.toLatin1();
  const std::string_view digits = numberStart(bytes);
  double value = 0.0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return result.ec == std::errc{} ? value : 0.0;
}

}  // namespace norvane
