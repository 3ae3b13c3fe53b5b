#pragma once
#include <QDialog>

#include "core/analysis/pass_search.h"
#include "core/astro/look_angles.h"
#include "core/elements/catalogue.h"
#include "core/platform/message_sink.h"
#include "core/propagation/model_state.h"
#include "settings/settings.h"
#include "ui/views/app_state.h"

class QDateEdit;
class QLineEdit;
class QProgressBar;
class QTimeEdit;
class QTreeWidget;

namespace norvane {

// What the "Prediction" dialog works on.
struct PredictionContext {
  Catalogue& catalogue;      // selection read; OK marks the chosen satellites
  AppState& app;             // observer, UTC shift; OK moves the clock and the current satellite
  const Settings& settings;  // "flares", "SatPredictVisible", "SatPredictMag", "s4_s8"
  PredictionStore& store;    // the rows of the last search, kept between openings
  LookAngleCache& cache;
  ModelState& models;
  MessageSink& messages;     // "Search result"
};

// "Prediction": list1024 of found moments, bars progress1017 (satellites) and
// progress1018 (time), "Predict" button1027, "h to predict" edit1000, start
// date date1020 and time time1030 in local time. OK moves the clock to the
// highlighted row's time, paused, and makes its satellite current.
class PredictionDialog : public QDialog {
 public:
  PredictionDialog(const PredictionContext& context, QWidget* parent = nullptr);
  void accept() override;

  void predict();
  QTreeWidget* list() const { return list_; }

 private:
  // Lists every stored row, newest first (until a heading click sorts the list).
  void fillList(bool freshSearch);

  PredictionContext context_;
  QTreeWidget* list_;
  QProgressBar* satellites_;
  QProgressBar* time_;
  QLineEdit* hours_;
  QDateEdit* date_;
  QTimeEdit* clock_;
};

// Shows "Prediction"; true when closed with OK.
bool runPredictionDialog(QWidget* parent, const PredictionContext& context);

}  // namespace norvane
