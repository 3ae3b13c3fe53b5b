#include "ui/app/main_window.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QDateTime>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QStatusBar>
#include <QMenuBar>
#include <QPainter>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <algorithm>

#include "core/analysis/next_pass_line.h"
#include "core/astro/julian_date.h"
#include "gps/gps_receiver.h"
#include "gps/linux_system_clock.h"
#include "settings/settings_io.h"
#include "ui/app/clock_tick.h"
#include "ui/app/open_file_dialog.h"
#include "ui/app/qt_message_sink.h"
#include "ui/app/start_up.h"
#include "ui/app/window_dialogs.h"
#include "ui/app/window_input.h"
#include "ui/views/gps_page.h"
#include "ui/views/info_page.h"
#include "ui/views/map_view.h"
#include "ui/views/orbit_view.h"
#include "ui/views/sky_view.h"

namespace norvane {
namespace {

CalendarTime CalendarOf(const QDateTime& t) {
  const QDate d = t.date();
  const QTime c = t.time();
  return {d.year(), d.month(), d.day(), c.hour(), c.minute(), c.second()};
}

// The five button images, drawn rather than loaded: map, sky, orbit, time, GPS page.
QIcon ButtonIcon(int image) {
  QPixmap pixmap(24, 24);
  pixmap.fill(Qt::transparent);
  QPainter p(&pixmap);
  p.setRenderHint(QPainter::Antialiasing);
  switch (image) {
    case 0:
      p.fillRect(2, 5, 20, 14, QColor(40, 90, 200));
      p.setBrush(QColor(60, 160, 60));
      p.setPen(Qt::NoPen);
      p.drawEllipse(4, 7, 7, 6);
      p.drawEllipse(12, 9, 8, 8);
      break;
    case 1:
      p.setBrush(QColor(10, 20, 70));
      p.drawEllipse(2, 2, 20, 20);
      p.setPen(Qt::yellow);
      p.drawPoint(8, 9);
      p.drawPoint(15, 7);
      p.drawPoint(12, 15);
      break;
    case 2:
      p.setPen(QPen(QColor(200, 40, 40), 1.5));
      p.drawEllipse(2, 7, 20, 10);
      p.setBrush(QColor(40, 90, 200));
      p.setPen(Qt::NoPen);
      p.drawEllipse(8, 8, 8, 8);
      break;
    case 3:
      p.setPen(QPen(Qt::black, 1.5));
      p.setBrush(Qt::white);
      p.drawEllipse(3, 3, 18, 18);
      p.drawLine(12, 12, 12, 6);
      p.drawLine(12, 12, 16, 14);
      break;
    default: {
      QFont font = p.font();
      font.setPixelSize(9);
      font.setBold(true);
      p.setFont(font);
      p.drawText(QRect(0, 0, 24, 24), Qt::AlignCenter, "GPS");
      break;
    }
  }
  return QIcon(pixmap);
}

int KeyCodeOf(int qtKey) {
  switch (qtKey) {
    case Qt::Key_Left: return kKeyLeft;
    case Qt::Key_Right: return kKeyRight;
    case Qt::Key_Up: return kKeyUp;
    case Qt::Key_Down: return kKeyDown;
    case Qt::Key_Return:
    case Qt::Key_Enter: return kKeyReturn;
    default: return 0;
  }
}

}  // namespace

CalendarTime SystemUtc() { return CalendarOf(QDateTime::currentDateTimeUtc()); }
CalendarTime SystemLocal() { return CalendarOf(QDateTime::currentDateTime()); }

MainWindow::MainWindow(WindowConfig config, QWidget* parent)
    : QMainWindow(parent),
      config_(std::move(config)),
      state_(std::make_unique<MainState>()),
      surface_(MakeOffscreenSurface()),
      skins_(std::make_unique<Skins>()),
      caches_(std::make_unique<ViewCaches>()) {
  setWindowTitle("Norvane");
  setObjectName("Norvane");
  if (config_.messages == nullptr) {
    auto own = std::make_unique<QtMessageSink>(this);
    own->setModal(false);  // the event loop does not run yet
    ownMessages_ = std::move(own);
  }
  messages_ = config_.messages != nullptr ? config_.messages : ownMessages_.get();

  state_->programFolder = config_.programFolder;
  const QDateTime now = QDateTime::currentDateTime();
  CreateMainState(*state_, *config_.store, *messages_, CalendarOf(now), CalendarOf(now.toUTC()));
  if (config_.options.tle) {
    ElementFileState file = FileStateOf(*state_);
    AppToSettings(*state_);
    BeginOpenCommand(file, state_->settings);
    OpenChosenFile(file, state_->catalogue, state_->settings, *config_.store, *messages_, *config_.options.tle);
    ApplyFileState(*state_, file);
    SettingsToApp(*state_);
  }
  ApplyClockOptions(config_.options, state_->app);
  if (config_.systemClock == nullptr) ownSystemClock_ = std::make_unique<LinuxSystemClock>();
  startGps();

  frame_ = new FrameWidget(config_.zoom, this);
  setCentralWidget(frame_);
  frame_->onPress = [this](QPoint p) {
    apply(StylusDown(*state_, ToFrameBuffer(p.x(), p.y(), frame_->width(), frame_->height(), 240, 320)));
  };
  frame_->onMove = [this](QPoint p) {
    apply(StylusMove(*state_, ToFrameBuffer(p.x(), p.y(), frame_->width(), frame_->height(), 240, 320)));
  };
  frame_->onRelease = [this] { apply(StylusUp(*state_)); };
  // The next-pass line: cut rather than widening the window at small zooms.
  nextPass_ = new QLabel(this);
  nextPass_->setObjectName("nextPassLine");
  nextPass_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  statusBar()->addWidget(nextPass_, 1);
  statusBar()->setSizeGripEnabled(false);
  notifier_ = new PassNotifier(this);
  buildMenus();
  buildButtons();
  connect(&timer_, &QTimer::timeout, this, [this] { tick(); });
  radio_ = std::make_unique<RadioStation>();
  radioStatus_ = new QLabel(this);
  radioStatus_->setObjectName("radioStatus");
  // Two lines at most: a long error is cut at the window's edge and shown whole as the tool tip.
  radioStatus_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  statusBar()->addWidget(radioStatus_, 1);
  connect(&radioTimer_, &QTimer::timeout, this, [this] { updateRadio(); });
  configureRadio();

  LoadSkins(*skins_, surface_, config_.programFolder + "/skins", *messages_);
  if (auto* own = dynamic_cast<QtMessageSink*>(ownMessages_.get())) own->setModal(true);
  paintView();
  watchPasses();
}

MainWindow::~MainWindow() {
  if (gps_) gps_->stop();
  if (radio_) radio_->stop();
}

void MainWindow::startGps() {
  Settings& s = state_->settings;
  GpsSettings& gps = state_->gpsSettings;
  gps = GpsSettings{s.gpsPort, s.gpsSpeed, state_->app.gpsTracking, s.gpsCompass, 0, s.gpsAcceptGN};
  gps_ = std::make_unique<GpsThread>(clock_);
  if (config_.startGps) {
    std::string reason;
    StartGpsReceiver(*gps_, gps, s.gpsDevices, reason);
  } else {
    gps.tracking = 0;
    gps_->configure(gps, s.gpsDevices);
  }
  state_->app.gpsTracking = gps.tracking;
}

void MainWindow::startTimer1s() {
  timer_.start(1000);
  if (radio_->active() && radio_->periodMs() < 1000) radioTimer_.start(radio_->periodMs());
}

void MainWindow::configureRadio() {
  radioTimer_.stop();
  radio_->configure(state_->settings.radio, state_->programFolder + "/Frequencies.txt");
  radioStatus_->setVisible(radio_->active());
  if (radio_->active() && timer_.isActive() && radio_->periodMs() < 1000) radioTimer_.start(radio_->periodMs());
  updateRadio();
}

void MainWindow::updateRadio() {
  if (!radio_->active()) return;
  const AppState& app = state_->app;
  StationInput in;
  if (app.currentSatellite >= 0 && app.currentSatellite < state_->catalogue.satelliteCount) {
    in.satellite = &state_->catalogue.satellites[app.currentSatellite];
  }
  in.observer = app.observer;
  // Real time runs on the system clock to the millisecond; simulated clocks on the tracker's time.
  in.jd = app.simulationMode == SimulationMode::RealTime
              ? 2440587.5 + static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 86400000.0
              : app.currentTime;
  in.downlinkMHz = state_->settings.downlink;
  in.uplinkMHz = state_->settings.uplink;
  in.family = state_->settings.s4s8 == 1 ? ModelFamily::Sgp8Sdp8 : ModelFamily::Sgp4Sdp4;
  radio_->update(in);
  const QString text = QString::fromStdString(radio_->radioLine() + "\n" + radio_->rotatorLine());
  radioStatus_->setText(text);
  radioStatus_->setToolTip(text);
}

void MainWindow::buildMenus() {
  struct Item {
    const char* text;
    int command;
  };
  const auto add = [this](QMenu* menu, const Item& item) {
    QAction* a = menu->addAction(item.text);
    a->setObjectName(QString("command%1").arg(item.command));
    connect(a, &QAction::triggered, this, [this, c = item.command] { runCommand(c); });
  };
  QMenu* file = menuBar()->addMenu("File");
  for (const Item& i : {Item{"Get Last", kCmdGetLast}, Item{"Open", kCmdOpen}, Item{"Exit", kCmdExit}}) add(file, i);
  QMenu* edit = menuBar()->addMenu("Edit");
  for (const Item& i : {Item{"Settings", kCmdSettings}, Item{"Location", kCmdLocation}, Item{"Sat select", kCmdSatSelect},
                        Item{"Tle info", kCmdTleInfo}, Item{"Predict", kCmdPredict}, Item{"GPS", kCmdGps}}) {
    add(edit, i);
  }
  edit->addSeparator();
  add(edit, Item{"Passes", kCmdPasses});
  add(edit, Item{"Radio", kCmdRadio});
  buildViewMenu();
  QMenu* help = menuBar()->addMenu("Help");
  for (const Item& i : {Item{"About", kCmdAbout}, Item{"Help", kCmdHelp}}) add(help, i);
  auto* quit = new QShortcut(QKeySequence("Ctrl+Q"), this);
  connect(quit, &QShortcut::activated, this, [this] { runCommand(kCmdClose); });
}

void MainWindow::buildButtons() {
  buttons_ = new QToolBar(this);
  buttons_->setObjectName("buttons");
  buttons_->setMovable(false);
  buttons_->setIconSize(QSize(24, 24));
  const int commands[5] = {kCmdMapView, kCmdSkyView, kCmdOrbitView, kCmdTime, kCmdGpsView};
  const char* const tips[5] = {"Map", "Sky", "Orbit", "Time", "GPS page"};
  for (int i = 0; i < 5; ++i) {
    QAction* a = buttons_->addAction(ButtonIcon(i), tips[i]);
    a->setObjectName(QString("command%1").arg(commands[i]));
    connect(a, &QAction::triggered, this, [this, c = commands[i]] { runCommand(c); });
  }
  addToolBar(Qt::BottomToolBarArea, buttons_);
}

// "View": the screen's zoom, 1 to 4 times; sizes that do not fit the screen are greyed.
void MainWindow::buildViewMenu() {
  viewMenu_ = menuBar()->addMenu("View");
  viewMenu_->setObjectName("viewMenu");
  auto* group = new QActionGroup(viewMenu_);
  for (int zoom = 1; zoom <= 4; ++zoom) {
    QAction* a = viewMenu_->addAction(QString("Zoom x%1").arg(zoom));
    a->setObjectName(QString("zoom%1").arg(zoom));
    a->setCheckable(true);
    group->addAction(a);
    connect(a, &QAction::triggered, this, [this, zoom] { setZoom(zoom); });
  }
  connect(viewMenu_, &QMenu::aboutToShow, this, [this] { updateZoomMenu(); });
}

void MainWindow::updateZoomMenu() {
  const int largest = largestZoom();
  for (int zoom = 1; zoom <= 4; ++zoom) {
    QAction* a = viewMenu_->findChild<QAction*>(QString("zoom%1").arg(zoom));
    if (a == nullptr) continue;
    a->setChecked(zoom == frame_->zoom());
    a->setEnabled(zoom <= largest);
  }
}

int MainWindow::largestZoom() const {
  const QScreen* s = screen();
  if (s == nullptr) return 4;
  const QRect room = s->availableGeometry();
  // Menus and buttons (hidden in full screen, back afterwards), and the
  // window manager's frame: before the window is framed, a title bar's worth.
  const bool framed = frameGeometry().size() != size();
  const int borderWidth = framed ? frameGeometry().width() - width() : 8;
  const int borderHeight =
      framed ? frameGeometry().height() - height() : style()->pixelMetric(QStyle::PM_TitleBarHeight) + 8;
  const QSize hint = sizeHint();
  const int chromeWidth = hint.width() - frame_->width() + borderWidth;
  int chromeHeight = hint.height() - frame_->height() + borderHeight;
  if (fullScreen_) chromeHeight += menuBar()->sizeHint().height() + buttons_->sizeHint().height();
  return FittingZoom(4, room.width(), room.height(), chromeWidth, chromeHeight);
}

void MainWindow::setZoom(int zoom) {
  zoom = std::clamp(zoom, 1, largestZoom());
  if (zoom != frame_->zoom()) {
    frame_->setZoom(zoom);
    adjustSize();
    if (config_.zoomChanged) config_.zoomChanged(zoom);
  }
  updateZoomMenu();
}

QAction* MainWindow::action(int command) const { return findChild<QAction*>(QString("command%1").arg(command)); }

void MainWindow::runCommand(int command) {
  apply(RunCommand(*state_, command, *this, *config_.store, *messages_));
  watchPasses();
}

void MainWindow::watchPasses() {
  MainState& s = *state_;
  PassWatch& watch = s.passWatch;
  const double now = s.app.currentTime;
  watch.schedule.update(s.catalogue, s.app.currentSatellite, s.app.observer, s.settings, now);
  for (const PlannedPass& pass :
       watch.alarms.due(watch.schedule.passes(), s.catalogue, s.app.currentSatellite, s.settings, now)) {
    const AlarmText text = AlarmTextOf(pass, now, s.app.utcOffset);
    notifier_->notify(text.summary, text.body);
  }
  QString line;
  const int current = s.app.currentSatellite;
  if (current >= 0 && current < s.catalogue.satelliteCount && s.catalogue.satellites[static_cast<std::size_t>(current)].catnr != 0) {
    const std::string next = nextPassLine(watch.schedule.passesOf(current), now, s.app.utcOffset);
    const auto& name = s.catalogue.satellites[static_cast<std::size_t>(current)].name;
    QString satellite = QString::fromLatin1(name.data(), static_cast<qsizetype>(strnlen(name.data(), name.size())));
    line = satellite.trimmed() + ": " +
           (next.empty() ? QString("no pass in the next day") : QString::fromUtf8(next.c_str()));
  }
  if (nextPass_->text() != line) {
    nextPass_->setText(line);
    nextPass_->setToolTip(line);
  }
}

ViewWorld MainWindow::world() {
  return ViewWorld{state_->app, state_->catalogue, state_->settings, state_->gps, *skins_, *caches_, surface_, frame_};
}

void MainWindow::takeGps() {
  if (!gps_) return;
  gps_->setView(static_cast<int>(state_->app.viewMode));
  gps_->setPhase(state_->tickCounter);
  state_->gps = gps_->data();
  if (const auto update = gps_->takeObserverUpdate(); update && update->position) {
    state_->app.observer.lat = update->latitude;
    state_->app.observer.lon = update->longitude;
    if (update->altitude) state_->app.observer.alt = update->altitudeKm;
  }
}

void MainWindow::tick(const CalendarTime& utc) {
  takeGps();
  apply(Tick(*state_, utc));
  watchPasses();
  updateRadio();
}

void MainWindow::tick() { tick(SystemUtc()); }

void MainWindow::paintView() {
  ViewWorld w = world();
  switch (state_->app.viewMode) {
    case ViewMode::Map: PaintMap(w); break;
    case ViewMode::Sky: PaintSky(w); break;
    case ViewMode::Orbit:
      if (state_->app.dragActive == 0) BuildOrbitScene(w);
      PaintOrbit(w);
      break;
    case ViewMode::Gps: {
      const CalendarTime t = SystemUtc();
      PaintGpsPage(w, JulianDateOfDate(t.year, t.month, t.day, t.hour, t.minute, t.second));
      break;
    }
    case ViewMode::Info:
    case ViewMode::LeaveFullScreen: {
      std::vector<InfoLine> lines =
          FormatInfoPage(w, state_->settings, state_->infoTiming, state_->infoOptions);
      frame_->showInfoPage(std::move(lines), InfoColoursFor(state_->settings));
      break;
    }
  }
}

void MainWindow::apply(const ScreenRequest& request) {
  if (request.screen == ScreenRequest::Screen::Full) setFullScreenView(true);
  if (request.screen == ScreenRequest::Screen::Standard) setFullScreenView(false);
  if (request.repaint) paintView();
}

void MainWindow::setFullScreenView(bool full) {
  if (full == fullScreen_) return;
  fullScreen_ = full;
  menuBar()->setVisible(!full);
  buttons_->setVisible(!full);
  statusBar()->setVisible(!full);
  adjustSize();
}

std::optional<std::string> MainWindow::chooseElementFile() {
  if (fileChooser) return fileChooser();
  QFileDialog dialog(this);
  ConfigureOpenDialog(dialog, state_->settings.lastOpen);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return dialog.selectedFiles().first().toStdString();
}

void MainWindow::runDialog(Command command) {
  if (dialogRunner) {
    dialogRunner(command);
    if (command == kCmdRadio) configureRadio();
    return;
  }
  SystemClock& clock = config_.systemClock != nullptr ? *config_.systemClock : *ownSystemClock_;
  DialogServices services{*state_,
                          *config_.store,
                          *messages_,
                          *caches_,
                          *gps_,
                          clock,
                          [this]() -> HttpClient& { return httpClient(); },
                          config_.serverBase,
                          config_.documentsFolder};
  RunWindowDialog(this, command, services);
  if (command == kCmdRadio) configureRadio();
}

HttpClient& MainWindow::httpClient() {
  if (config_.http != nullptr) return *config_.http;
  if (!ownHttp_) ownHttp_ = makePlatformHttpClient();
  return *ownHttp_;
}

void MainWindow::openDocument(const std::string& path) {
  if (documentOpener) {
    documentOpener(path);
    return;
  }
  if (help_ == nullptr) help_ = new HelpWindow(this);
  help_->showPage(path);
}

void MainWindow::closeWindow() {
  closing_ = true;
  close();
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
  const int key = KeyCodeOf(event->key());
  if (key == 0) {
    QMainWindow::keyPressEvent(event);
    return;
  }
  apply(KeyDown(*state_, key));
}

void MainWindow::keyReleaseEvent(QKeyEvent* event) {
  const int key = KeyCodeOf(event->key());
  if (key == 0 || event->isAutoRepeat()) {
    QMainWindow::keyReleaseEvent(event);
    return;
  }
  apply(KeyUp(*state_, key));
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!closing_) {
    // The window's own close button is the title-bar "ok".
    AppToSettings(*state_);
    if (!state_->settings.lastOpen.empty()) saveLastFileGroup(state_->settings, *config_.store);
  }
  timer_.stop();
  radioTimer_.stop();
  if (gps_) gps_->stop();
  radio_->stop();
  // A download still running is abandoned: nothing of it is loaded or saved.
  if (ownHttp_) ownHttp_->cancel();
  if (config_.http != nullptr) config_.http->cancel();
  event->accept();
}

void MainWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ActivationChange) {
    const bool active = isActiveWindow();
    if (wasActive_ && !active && state_->app.viewMode != ViewMode::Info) {
      apply(ShowInfoPage(state_->app));
    }
    wasActive_ = active;
  }
  QMainWindow::changeEvent(event);
}

}  // namespace norvane
