#pragma once
#include <cstdint>

namespace norvane {

// What an observer can see of a satellite at one instant.
enum class VisibilityState : std::int16_t {
  Invisible = 0,  // below the horizon
  InRange = 1,    // above the horizon; always replaced within one evaluation
  Eclipsed = 2,   // above the horizon, in the Earth's shadow
  InSun = 3,      // sunlit, sky not dark enough (or, in flare mode, no flare)
  Visible = 4,    // sunlit, Sun more than 0.13 rad below the horizon
  Flare = 5,      // flare mode: a reflection within 5 degrees
};

// "Invisible", "In range", "Eclipsed", "In sun", "Visible", "Flare"; "" for other codes.
const char* VisibilityText(VisibilityState state);

}  // namespace norvane
