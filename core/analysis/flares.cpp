#include "core/analysis/flares.h"

#include <cmath>
#include <initializer_list>

#include "core/astro/numeric.h"
#include "core/astro/vector_math.h"

namespace norvane {
namespace {

constexpr double kDegreesPerRadian = 57.29577951308232;

struct Frame {
  StateVector axis[3];
};

// Unit axis i of the panel frame, written over the basis (v, r, c).
StateVector panelAxis(int i, double tilt, double azimuth, const StateVector& v, const StateVector& r,
                      const StateVector& c) {
  const double x = i == 0 ? 1.0 : 0.0;
  const double y = i == 1 ? 1.0 : 0.0;
  const double z = i == 2 ? 1.0 : 0.0;
  const double p = x * std::cos(tilt) - z * std::sin(tilt);
  const double q = x * std::sin(tilt) + z * std::cos(tilt);
  const double u = p * std::cos(azimuth) + y * std::sin(azimuth);
  const double w = -p * std::sin(azimuth) + y * std::cos(azimuth);
  StateVector out{u * v.x + w * c.x + q * r.x, u * v.y + w * c.y + q * r.y, u * v.z + w * c.z + q * r.z, 0.0};
  VecMagnitude(out);
  return out;
}

StateVector unit(const StateVector& a) {
  StateVector out;
  Scalar_Multiply(1.0 / a.w, a, out);
  return out;
}

StateVector combine(const Frame& f, double a, double b, double c) {
  StateVector out{a * f.axis[0].x + b * f.axis[1].x + c * f.axis[2].x,
                  a * f.axis[0].y + b * f.axis[1].y + c * f.axis[2].y,
                  a * f.axis[0].z + b * f.axis[1].z + c * f.axis[2].z, 0.0};
  VecMagnitude(out);
  return out;
}

}  // namespace

const char* AntennaName(std::int16_t code) {
  switch (code) {
    case 1: return kFrontAntenna.name;
    case 2: return kLeftAntenna.name;
    case 3: return kRightAntenna.name;
    default: return "";
  }
}

double PanelReflection(const StateVector& sun, const StateVector& satPos, const StateVector& satVel,
                       const StateVector& obsPos, double tilt, double azimuth, double& psi) {
  const StateVector v = unit(satVel);
  const StateVector r = unit(satPos);
  // The cross product of two unit vectors that are not quite perpendicular; not normalised again.
  StateVector c{v.y * r.z - v.z * r.y, v.z * r.x - v.x * r.z, v.x * r.y - v.y * r.x, 0.0};
  VecMagnitude(c);
  Frame frame;
  for (int i = 0; i < 3; ++i) frame.axis[i] = panelAxis(i, tilt, azimuth, v, r, c);

  StateVector sight;
  Vec_Sub(satPos, obsPos, sight);
  const StateVector d = unit(sight);
  const double c1 = Dot(d, frame.axis[0]);
  const double c2 = Dot(d, frame.axis[1]);
  const double c3 = Dot(d, frame.axis[2]);
  if (-c1 < 0.0) return kNoReflection;

  const StateVector mirrored = combine(frame, -c1, c2, c3);
  StateVector toSun;
  Vec_Sub(sun, satPos, toSun);
  const StateVector s = unit(toSun);
  const double angle = Angle(mirrored, s);
  psi = kPi - Angle(d, s);
  return angle;
}

double FlareMagnitude(const StateVector& sun, const StateVector& satPos, const StateVector& satVel,
                      const StateVector& obsPos, double& psi, double& flareAngle, std::int16_t& antenna) {
  antenna = kFrontAntenna.code;
  double angle = PanelReflection(sun, satPos, satVel, obsPos, kFrontAntenna.tilt, kFrontAntenna.azimuth, psi);
  flareAngle = angle;
  for (const Antenna* next : {&kLeftAntenna, &kRightAntenna}) {
    if (angle <= kFlareThreshold) break;
    angle = PanelReflection(sun, satPos, satVel, obsPos, next->tilt, next->azimuth, psi);
    if (angle < flareAngle) {
      flareAngle = angle;
      antenna = next->code;
    }
  }
  if (angle > kFlareThreshold) return kNoReflection;
  // The panel within 5 degrees is the one just evaluated, so it is also the smallest angle kept.
  const double distance = satPos.w - obsPos.w;
  return -4.8 + 5.5 * std::log10(angle * kDegreesPerRadian + 0.047) +
         std::log10(distance / (std::cos(psi / 2.0) + 1e-5));
}

}  // namespace norvane
