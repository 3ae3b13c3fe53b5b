#pragma once
#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "core/platform/message_sink.h"
#include "core/platform/settings_store.h"
#include "core/platform/system_clock.h"
#include "download/http_client.h"
#include "download/platform_http.h"
#include "gps/gps_thread.h"
#include "gps/steady_clock.h"
#include "ui/app/frame_widget.h"
#include "ui/app/help_window.h"
#include "ui/app/main_state.h"
#include "ui/app/pass_notifier.h"
#include "ui/app/program_options.h"
#include "ui/app/radio_station.h"
#include "ui/app/screen_request.h"
#include "ui/app/window_commands.h"
#include "ui/surface/drawing_surface.h"
#include "ui/surface/skins.h"
#include "ui/views/view_world.h"

class QAction;
class QLabel;
class QMenu;
class QToolBar;

namespace norvane {

// What the window is started with.
struct WindowConfig {
  std::string programFolder;   // Select.bol, Help.htm, Cities.loc, skins/
  SettingsStore* store = nullptr;
  MessageSink* messages = nullptr;  // the window's own message boxes when null
  int zoom = 1;
  ProgramOptions options;
  bool startGps = true;        // try the configured port and start the reader
  std::string serverBase = kDefaultElementServer;  // "Get Last" fetches from here
  std::string documentsFolder;   // downloads go here; the user's documents folder when empty
  HttpClient* http = nullptr;    // the platform's client, made on the first download, when null
  SystemClock* systemClock = nullptr;  // the system clock when null
  std::function<void(int)> zoomChanged;  // told the zoom chosen in the View menu
};

// The tracker's one window: menus, the five image buttons, the one-second
// timer, keys and stylus, over a FrameWidget. The logic lives in the Qt-free
// functions over MainState; this class adapts them to Qt.
class MainWindow : public QMainWindow, public CommandHost {
 public:
  explicit MainWindow(WindowConfig config, QWidget* parent = nullptr);
  ~MainWindow() override;

  MainState& state() { return *state_; }
  FrameWidget& frame() { return *frame_; }
  bool fullScreenView() const { return fullScreen_; }
  QAction* action(int command) const;
  RadioStation& radio() { return *radio_; }
  // The radio and rotator status line under the screen (hidden while both are off).
  QLabel* radioStatus() const { return radioStatus_; }

  // One command, as its menu item or button would run it.
  void runCommand(int command);
  // One tick at the given system UTC time, or at the clock's time.
  void tick(const CalendarTime& utc);
  void tick();
  // Repaints the active view now.
  void paintView();
  void startTimer1s();
  // Plans the passes when their inputs changed, raises the alarms that are
  // due and shows the current satellite's next pass under the frame.
  void watchPasses();
  QLabel* nextPassLabel() const { return nextPass_; }
  PassNotifier& passNotifier() { return *notifier_; }
  // The largest zoom at which the window fits the screen's free room.
  int largestZoom() const;
  // Shows the screen at a zoom, no larger than the screen allows.
  void setZoom(int zoom);

  // Seams for the dialogs and desktop services; tests replace them.
  std::function<std::optional<std::string>()> fileChooser;
  std::function<void(Command)> dialogRunner;
  std::function<void(const std::string&)> documentOpener;

  // CommandHost
  std::optional<std::string> chooseElementFile() override;
  void runDialog(Command command) override;
  void openDocument(const std::string& path) override;
  void closeWindow() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void buildMenus();
  void buildButtons();
  void buildViewMenu();
  void updateZoomMenu();
  void startGps();
  void apply(const ScreenRequest& request);
  void setFullScreenView(bool full);
  void takeGps();
  ViewWorld world();
  HttpClient& httpClient();
  void configureRadio();
  void updateRadio();

  WindowConfig config_;
  std::unique_ptr<MainState> state_;
  std::unique_ptr<MessageSink> ownMessages_;
  MessageSink* messages_;
  DrawingSurface surface_;
  std::unique_ptr<Skins> skins_;
  std::unique_ptr<ViewCaches> caches_;
  SteadyClock clock_;
  std::unique_ptr<GpsThread> gps_;  // exists always; runs when a port is chosen
  std::unique_ptr<SystemClock> ownSystemClock_;
  std::unique_ptr<HttpClient> ownHttp_;
  FrameWidget* frame_ = nullptr;
  QToolBar* buttons_ = nullptr;
  QLabel* nextPass_ = nullptr;
  PassNotifier* notifier_ = nullptr;
  QMenu* viewMenu_ = nullptr;
  HelpWindow* help_ = nullptr;
  QTimer timer_;
  bool fullScreen_ = false;
  bool closing_ = false;
  bool wasActive_ = false;

  std::unique_ptr<RadioStation> radio_;
  QTimer radioTimer_;  // updates faster than the tick when a period below a second is set
  QLabel* radioStatus_ = nullptr;
};

// The system clock's UTC and local calendar time now.
CalendarTime SystemUtc();
CalendarTime SystemLocal();

}  // namespace norvane
