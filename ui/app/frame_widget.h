#pragma once
#include <QImage>
#include <QWidget>
#include <functional>
#include <vector>

#include "core/platform/display.h"
#include "ui/views/info_page.h"

namespace norvane {

// The 240 x 320 screen at an integer zoom: shows either the last frame a
// graphic view presented (RGB565) or the information page's lines drawn with
// the window system's font. Stylus events leave in widget pixels.
class FrameWidget : public QWidget, public Display {
 public:
  explicit FrameWidget(int zoom, QWidget* parent = nullptr);

  DisplayProperties properties() const override { return kPortraitDisplay; }
  void present(const Frame& frame) override;

  // Shows the information page instead of the frame.
  void showInfoPage(std::vector<InfoLine> lines, const InfoColours& colours);
  void showFrame();

  int zoom() const { return zoom_; }
  // Shows the screen at another integer zoom.
  void setZoom(int zoom);
  const QImage& frameImage() const { return frame_; }
  bool showingInfo() const { return info_; }
  const std::vector<InfoLine>& infoLines() const { return lines_; }

  std::function<void(QPoint)> onPress;
  std::function<void(QPoint)> onMove;
  std::function<void()> onRelease;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void paintInfo(QPainter& painter);

  int zoom_;
  QImage frame_;
  bool info_ = true;
  std::vector<InfoLine> lines_;
  InfoColours colours_ = kInfoColoured;
};

}  // namespace norvane
