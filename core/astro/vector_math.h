#pragma once
#include "core/propagation/state_vector.h"

namespace norvane {

// Sets v.w to the length of (x, y, z).
void VecMagnitude(StateVector& v);
// out = a - b, with its length.
void Vec_Sub(const StateVector& a, const StateVector& b, StateVector& out);
// out = k * v, with its length.
void Scalar_Multiply(double k, const StateVector& v, StateVector& out);
// Dot product of the (x, y, z) parts.
double Dot(const StateVector& a, const StateVector& b);
// Angle between two vectors (radians) from their dot product and their stored lengths.
double Angle(const StateVector& a, const StateVector& b);

}  // namespace norvane
