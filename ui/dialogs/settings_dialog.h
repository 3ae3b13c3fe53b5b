#pragma once
#include <QDialog>
#include <cstdint>

#include "core/platform/settings_store.h"
#include "settings/settings.h"

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace norvane {

// The values the "Settings" dialog keeps on OK: frequencies outside 1.0 to
// 1e7 MHz fall back to 138.0 (uplink) and 130.0 (downlink), a prediction
// limit above 20 to 20.
double UplinkOrFallback(double mhz);
double DownlinkOrFallback(double mhz);
std::int32_t PredictionLimitOrFallback(long long limit);

// "Settings": frequencies (edit1001, edit1002), the magnitude limit of the
// pass search (edit1004), the star limit (combo1048) and the option boxes.
// OK validates, writes settings and the information page's model-comparison
// flag ("test", never saved) and saves the settings group.
class SettingsDialog : public QDialog {
 public:
  SettingsDialog(Settings& settings, SettingsStore& store, std::uint8_t& modelComparison,
                 QWidget* parent = nullptr);
  void accept() override;

 private:
  QCheckBox* box(const char* id, const char* text, bool checked);

  Settings& settings_;
  SettingsStore& store_;
  std::uint8_t& modelComparison_;
  QLineEdit* uplink_;
  QLineEdit* downlink_;
  QLineEdit* limit_;
  QComboBox* stars_;
  QCheckBox *swap_, *flares_, *refraction_, *visible_, *sgp8_, *planets_, *colors_, *test_;
};

// Shows "Settings"; true when closed with OK.
bool runSettingsDialog(QWidget* parent, Settings& settings, SettingsStore& store, std::uint8_t& modelComparison);

}  // namespace norvane
