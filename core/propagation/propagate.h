#pragma once
#include <cstdint>

#include "core/elements/catalogue.h"
#include "core/propagation/model_state.h"
#include "core/propagation/state_vector.h"
#include "core/propagation/working_set.h"

namespace norvane {

// Kilometres per earth radius, and km/s per earth radius per minute.
inline constexpr double kKilometresPerEarthRadius = 6378.137;
inline constexpr double kKmPerSecondPerEarthRadiusPerMinute = 106.30228333333332;

// mode value that selects SGP8/SDP8; any other selects SGP4/SDP4.
inline constexpr int kSgp8Mode = 1;

// Julian date (UTC days) of an epoch written YYDDD.dddddddd; years 57-99 are
// 1957-1999, 00-56 are 2000-2056.
double epochToJulian(double epoch);

// Copies catalogue entry sat into work in file units: every element but
// xndd6o and elset (which keep what work held), and the name.
void copyElements(WorkingSet& work, const Satellite& sat);

// copyElements, then converts work to model units and sets period and isDeepSpace.
void initialiseWorkingSet(WorkingSet& work, const Satellite& sat);

// Position (km) and velocity (km/s) of catalogue slot index at Julian date jd,
// in the models' inertial frame. initialised == 0 copies the slot into work
// and initialises the model; otherwise work and the model constants of the
// last initialisation are reused. mode kSgp8Mode selects SGP8/SDP8. Returns
// the milliseconds spent in the model call. A slot outside the catalogue is
// taken as an empty entry.
std::uint32_t propagate(ModelState& models, const Catalogue& catalogue, double jd, WorkingSet& work,
                        int index, StateVector& velocity, StateVector& position, std::uint8_t initialised,
                        int mode);

// As propagate, for a time given in minutes from the element epoch.
std::uint32_t propagateSince(ModelState& models, const Catalogue& catalogue, double tsince, WorkingSet& work,
                             int index, StateVector& velocity, StateVector& position, std::uint8_t initialised,
                             int mode);

// The model call alone: the model chosen by mode and work.isDeepSpace at
// tsince minutes from epoch, position in earth radii and velocity in earth
// radii per minute (magnitudes not set).
void runModel(ModelState& models, double tsince, const WorkingSet& work, StateVector& position,
              StateVector& velocity, std::uint8_t initialised, int mode);

// Name of the model that runModel chooses: "SGP4", "SDP4", "SGP8" or "SDP8".
const char* modelName(const WorkingSet& work, int mode);

}  // namespace norvane
