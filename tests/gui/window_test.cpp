#include <gtest/gtest.h>

#include <QAction>
#include <QMenuBar>
#include <QTest>
#include <QPixmap>
#include <QTextBrowser>
#include <QToolBar>
#include <QUrl>
#include <memory>

#include "tests/gui/window_fixture.h"

namespace norvane {
namespace {

// A window recording the dialogs it would run and the zooms it reports.
struct Window : testing::WindowHome {
  explicit Window(int zoom = 2, ProgramOptions options = {}) {
    WindowConfig c = config(std::move(options));
    c.zoom = zoom;
    c.zoomChanged = [this](int z) { zooms.push_back(z); };
    window = std::make_unique<MainWindow>(c);
    window->dialogRunner = [this](Command command) { dialogs.push_back(command); };
    window->show();
  }
  ~Window() override { window.reset(); }
  std::vector<int> dialogs;
  std::vector<int> zooms;
};

ProgramOptions Bundled() { return testing::BundledAt({2017, 4, 14, 20, 0, 0}); }

TEST(Window, MenusButtonsAndTitle) {
  Window w;
  EXPECT_EQ(w.window->windowTitle(), "Norvane");
  QStringList menus;
  for (QAction* a : w.window->menuBar()->actions()) menus << a->text();
  EXPECT_EQ(menus, (QStringList{"File", "Edit", "View", "Help"}));
  for (int c : {kCmdGetLast, kCmdOpen, kCmdExit, kCmdSettings, kCmdLocation, kCmdSatSelect, kCmdTleInfo, kCmdPredict,
                kCmdGps, kCmdAbout, kCmdHelp, kCmdMapView, kCmdSkyView, kCmdOrbitView, kCmdTime, kCmdGpsView}) {
    EXPECT_NE(w.window->action(c), nullptr) << c;
  }
  EXPECT_EQ(w.window->action(kCmdSatSelect)->text(), "Sat select");
  EXPECT_EQ(w.window->findChild<QToolBar*>("buttons")->actions().size(), 5);
  EXPECT_EQ(w.window->frame().size(), QSize(480, 640));
}

TEST(Window, FirstTickShowsTheInfoPageAndButtonsEnterFullScreen) {
  Window w(2, Bundled());
  EXPECT_EQ(w.sink.titles(), std::vector<std::string>{"Info"});  // the --tle load
  w.window->tick({2017, 4, 14, 20, 0, 0});
  EXPECT_EQ(w.window->state().app.viewMode, ViewMode::Info);
  EXPECT_TRUE(w.window->frame().showingInfo());
  EXPECT_FALSE(w.window->frame().infoLines().empty());
  for (int c : {kCmdMapView, kCmdSkyView, kCmdOrbitView, kCmdGpsView}) {
    w.window->action(c)->trigger();
    EXPECT_TRUE(w.window->fullScreenView());
    EXPECT_FALSE(w.window->menuBar()->isVisible());
    EXPECT_FALSE(w.window->frame().showingInfo());
    w.window->tick({2017, 4, 14, 20, 0, 0});
    QTest::keyClick(w.window.get(), Qt::Key_Return);
    EXPECT_EQ(w.window->state().app.viewMode, ViewMode::Info);
    EXPECT_FALSE(w.window->fullScreenView());
  }
  w.window->action(kCmdTime)->trigger();
  EXPECT_EQ(w.dialogs, std::vector<int>{kCmdTime});
  // Help shows Help.htm in a window of the program, pictures and all.
  w.window->action(kCmdHelp)->trigger();
  auto* help = w.window->findChild<QTextBrowser*>("help");
  ASSERT_NE(help, nullptr);
  EXPECT_TRUE(help->isVisible());
  EXPECT_EQ(help->source(), QUrl::fromLocalFile(QString::fromStdString(w.home / "Help.htm")));
  EXPECT_TRUE(help->toPlainText().contains("Getting started"));
  const QVariant picture = help->document()->resource(QTextDocument::ImageResource, QUrl("map.png"));
  EXPECT_EQ(picture.value<QPixmap>().width(), 240);  // the page laid out with its picture
}

TEST(Window, ZoomFitsTheScreenAndTheViewMenuChangesIt) {
  EXPECT_EQ(FittingZoom(4, 1920, 1040, 20, 110), 2);  // 4 is taller than a 1080-pixel screen
  EXPECT_EQ(FittingZoom(4, 3840, 2100, 20, 110), 4);
  EXPECT_EQ(FittingZoom(3, 200, 200, 20, 110), 1);
  Window w(4);
  w.window->setZoom(4);
  const QRect room = w.window->screen()->availableGeometry();
  EXPECT_LT(w.window->frame().zoom(), 4);
  EXPECT_LE(w.window->sizeHint().height(), room.height());
  EXPECT_FALSE(w.window->findChild<QAction*>("zoom4")->isEnabled());
  w.window->findChild<QAction*>("zoom1")->trigger();
  EXPECT_EQ(w.window->frame().size(), QSize(240, 320));
  EXPECT_TRUE(w.window->findChild<QAction*>("zoom1")->isChecked());
  EXPECT_EQ(w.zooms.back(), 1);
}

TEST(Window, TapsThroughTheZoomAndKeys) {
  Window w(3, Bundled());
  w.window->action(kCmdSkyView)->trigger();
  QTest::mouseClick(&w.window->frame(), Qt::LeftButton, {}, QPoint(100 * 3 + 1, 200 * 3 + 2));
  EXPECT_EQ(w.window->state().app.tapPoint, (Point{100, 200}));
  QTest::keyClick(w.window.get(), Qt::Key_Down);
  EXPECT_EQ(w.window->state().app.currentSatellite, 1);
  // The corner rules per view are the window logic's; here the zoomed click reaches them.
  QTest::mouseClick(&w.window->frame(), Qt::LeftButton, {}, QPoint(233 * 3, 3 * 3));
  EXPECT_EQ(w.window->state().app.viewMode, ViewMode::Info);
  EXPECT_FALSE(w.window->fullScreenView());
}

TEST(Window, CtrlQSavesTheLastFileAndExitWritesTheSelection) {
  {
    Window w(1, Bundled());
    w.window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(w.window.get(), 2000));
    QTest::keyClick(w.window.get(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(w.window->isVisible());
    EXPECT_EQ(w.store.values.count("Last_Open"), 1u);
    EXPECT_FALSE(std::filesystem::exists(w.home / "Select.bol"));
  }
  Window w(1, Bundled());
  w.window->action(kCmdExit)->trigger();
  EXPECT_EQ(std::filesystem::file_size(w.home / "Select.bol"), 720u);
  EXPECT_FALSE(w.window->isVisible());
}

TEST(Window, SimulatedClockFromTheCommandLine) {
  ProgramOptions o = Bundled();
  o.clock = SimulationMode::X10;
  Window w(1, o);
  const double start = w.window->state().app.currentTime;
  for (int i = 0; i < 6; ++i) w.window->tick();
  EXPECT_NEAR((w.window->state().app.currentTime - start) * 86400.0, 60.0, 1e-4);
  EXPECT_EQ(w.window->frame().infoLines()[0].left.substr(0, 13), "Sym time x10 ");
}

}  // namespace
}  // namespace norvane
