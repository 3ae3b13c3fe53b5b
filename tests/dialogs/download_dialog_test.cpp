// The download dialog against tests/download/element_server.py: what Cancel,
// closing and quitting do to a download that is still arriving.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>

#include "../download/fixture_server.h"
#include "../download/recording_sink.h"
#include "download/qt_http_client.h"
#include "qt_fixture.h"
#include "settings/memory_settings_store.h"
#include "ui/dialogs/download_dialog.h"

namespace norvane {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

class DownloadLifeTest : public testing::DialogTest {
 protected:
  static void SetUpTestSuite() {
    DialogTest::SetUpTestSuite();
    server.start();
  }
  static void TearDownTestSuite() { server.stop(); }

  void SetUp() override {
    ASSERT_NE(server.port(), 0) << "the test server did not start";
    temp.write("stations.txt", "the user's own file\r\n");
    catalogue->satelliteCount = 5;
  }

  // Presses Download on a dialog fetching from the trickling server; act runs
  // 400 ms later, while the body is still arriving.
  void downloadAndMeanwhile(DownloadDialog& dialog, const std::function<void()>& act) {
    meanwhile.setSingleShot(true);
    QObject::connect(&meanwhile, &QTimer::timeout, &dialog, act);
    meanwhile.start(400);
    const auto started = Clock::now();
    control<QPushButton>(dialog, "button1058")->click();
    took = Clock::now() - started;
  }

  // Lets the event loop run past the time the whole body would have taken.
  static void waitPastTheBody() {
    QEventLoop loop;
    QTimer later;
    later.setSingleShot(true);
    QObject::connect(&later, &QTimer::timeout, &loop, &QEventLoop::quit);
    later.start(2800);
    loop.exec();
  }

  void expectNothingHappened(const DownloadDialog& dialog) {
    EXPECT_EQ(dialog.downloadResult().status, DownloadStatus::Cancelled);
    EXPECT_LT(took, std::chrono::milliseconds(1500));
    EXPECT_TRUE(sink.shown.empty()) << sink.shown.front();
    EXPECT_EQ(catalogue->satelliteCount, 5);
    EXPECT_EQ(store.writes, 0);
    EXPECT_EQ(testing::ReadFile(temp / "stations.txt"), "the user's own file\r\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(temp.path), fs::directory_iterator{}), 1);
  }

  static testing::ElementServer server;
  QtHttpClient http;
  testing::RecordingSink sink;
  MemorySettingsStore store;
  testing::TempFolder temp;
  DownloadContext context{http, sink, store, server.base("trickle"), temp.path};
  std::unique_ptr<Catalogue> catalogue = std::make_unique<Catalogue>();
  Settings settings;
  std::int32_t mark = 0;
  DownloadTarget target{*catalogue, settings, mark};
  Clock::duration took{};
  QTimer meanwhile;  // runs the act of downloadAndMeanwhile
};

testing::ElementServer DownloadLifeTest::server;

TEST_F(DownloadLifeTest, CancelAbortsAndNothingFollowsLater) {
  DownloadDialog dialog(context, target, "", nullptr);
  dialog.show();
  downloadAndMeanwhile(dialog, [&] { press(dialog, QDialogButtonBox::Cancel); });
  EXPECT_EQ(dialog.result(), QDialog::Rejected);
  EXPECT_FALSE(dialog.isVisible());
  waitPastTheBody();
  expectNothingHappened(dialog);
}

TEST_F(DownloadLifeTest, WhileRunningDownloadIsDisabledAndBytesShow) {
  DownloadDialog dialog(context, target, "", nullptr);
  dialog.show();
  bool enabled = true;
  QString status;
  downloadAndMeanwhile(dialog, [&] {
    enabled = control<QPushButton>(dialog, "button1058")->isEnabled();
    status = control<QLabel>(dialog, "downloadStatus")->text();
    dialog.close();  // the window's close button
  });
  EXPECT_FALSE(enabled);
  EXPECT_TRUE(status.startsWith("Downloading: ") && status.endsWith(" bytes received")) << status.toStdString();
  EXPECT_GT(status.section(' ', 1, 1).toInt(), 0) << status.toStdString();
  waitPastTheBody();
  expectNothingHappened(dialog);
}

TEST_F(DownloadLifeTest, QuittingTheProgramNeverSavesThePartialBody) {
  DownloadDialog dialog(context, target, "", nullptr);
  dialog.show();
  // What Ctrl+Q, Exit or closing the main window come to: the application's
  // exit leaves every running event loop.
  downloadAndMeanwhile(dialog, [] { QCoreApplication::exit(0); });
  expectNothingHappened(dialog);
  // Let later tests of this process run event loops again.
  QTimer leave;
  leave.setSingleShot(true);
  QObject::connect(&leave, &QTimer::timeout, [] { QCoreApplication::exit(0); });
  leave.start(0);
  QCoreApplication::exec();
}

}  // namespace
}  // namespace norvane
