#include "ui/dialogs/dialog_support.h"

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

}  // namespace

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
