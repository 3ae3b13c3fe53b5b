#pragma once
#include "ui/app/main_state.h"
#include "ui/app/screen_request.h"

namespace norvane {

// A calendar instant as the system clock reports it.
struct CalendarTime {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
};

// Days each tick adds to the clock in a simulated mode; 0 for real time and pause.
double ClockStep(SimulationMode mode);

// Local time minus UTC (days) from the two clocks read at the same moment,
// whole hours only: minutes and seconds of both are taken as 0.
double UtcOffsetOf(const CalendarTime& local, const CalendarTime& utc);

// One second of the timer: advances the clock (systemUtc is read only in real
// time), takes a three-dimensional GPS fix into the observer, turns the sky
// to the course when the compass is on, and steps the phase counter. The
// request says what to repaint; leaving full screen puts the information page up.
ScreenRequest Tick(MainState& state, const CalendarTime& systemUtc);

}  // namespace norvane
