#include "ui/app/frame_widget.h"

#include <QMouseEvent>
#include <QPainter>

namespace norvane {
namespace {

QColor ColourOf(std::uint32_t rgb) {
  return QColor(static_cast<int>(rgb & 0xFFu), static_cast<int>(rgb >> 8 & 0xFFu), static_cast<int>(rgb >> 16 & 0xFFu));
}

}  // namespace

FrameWidget::FrameWidget(int zoom, QWidget* parent)
    : QWidget(parent), zoom_(zoom), frame_(kPortraitDisplay.width, kPortraitDisplay.height, QImage::Format_RGB16) {
  frame_.fill(Qt::black);
  setFixedSize(kPortraitDisplay.width * zoom_, kPortraitDisplay.height * zoom_);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
}

void FrameWidget::setZoom(int zoom) {
  zoom_ = zoom;
  setFixedSize(kPortraitDisplay.width * zoom_, kPortraitDisplay.height * zoom_);
  update();
}

void FrameWidget::present(const Frame& frame) {
  if (frame.pixels == nullptr || frame.width != frame_.width() || frame.height != frame_.height()) return;
  for (int y = 0; y < frame.height; ++y) {
    auto* row = reinterpret_cast<std::uint16_t*>(frame_.scanLine(y));
    for (int x = 0; x < frame.width; ++x) {
      const std::int64_t at = std::int64_t{frame.origin} + std::int64_t{x} * frame.xStep + std::int64_t{y} * frame.yStep;
      row[x] = at >= 0 && at < frame.count ? frame.pixels[at] : 0;
    }
  }
  info_ = false;
  update();
}

void FrameWidget::showInfoPage(std::vector<InfoLine> lines, const InfoColours& colours) {
  lines_ = std::move(lines);
  colours_ = colours;
  info_ = true;
  update();
}

void FrameWidget::showFrame() {
  info_ = false;
  update();
}

void FrameWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (!info_) {
    painter.drawImage(rect(), frame_);
    return;
  }
  painter.fillRect(rect(), Qt::white);
  painter.scale(zoom_, zoom_);
  paintInfo(painter);
}

// Lines top to bottom, left and right texts sharing a line; a rule under the status line.
void FrameWidget::paintInfo(QPainter& painter) {
  QFont font = painter.font();
  font.setPixelSize(11);
  painter.setFont(font);
  const int height = painter.fontMetrics().height();
  const int width = kPortraitDisplay.width;
  int y = 1;
  for (const InfoLine& line : lines_) {
    painter.setPen(ColourOf(InfoLineColour(colours_, line.block)));
    const QRect box(2, y, width - 4, height);
    painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, QString::fromUtf8(line.left));
    painter.drawText(box, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, QString::fromUtf8(line.right));
    y += height + line.advance;
    if (line.ruleBelow) {
      painter.setPen(Qt::black);
      painter.drawLine(0, y, width, y);
      y += 2;
    }
  }
}

void FrameWidget::mousePressEvent(QMouseEvent* event) {
  if (onPress) onPress(event->position().toPoint());
}

void FrameWidget::mouseMoveEvent(QMouseEvent* event) {
  if (onMove && (event->buttons() & Qt::LeftButton)) onMove(event->position().toPoint());
}

void FrameWidget::mouseReleaseEvent(QMouseEvent*) {
  if (onRelease) onRelease();
}

}  // namespace norvane
