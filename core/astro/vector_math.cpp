#include "core/astro/vector_math.h"

#include <cmath>

#include "core/astro/numeric.h"

namespace norvane {

void VecMagnitude(StateVector& v) { v.w = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z); }

void Vec_Sub(const StateVector& a, const StateVector& b, StateVector& out) {
  out.x = a.x - b.x;
  out.y = a.y - b.y;
  out.z = a.z - b.z;
  VecMagnitude(out);
}

void Scalar_Multiply(double k, const StateVector& v, StateVector& out) {
  out.x = k * v.x;
  out.y = k * v.y;
  out.z = k * v.z;
  out.w = std::fabs(k) * v.w;
}

double Dot(const StateVector& a, const StateVector& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

double Angle(const StateVector& a, const StateVector& b) { return ArcCos(Dot(a, b) / (a.w * b.w)); }

}  // namespace norvane
