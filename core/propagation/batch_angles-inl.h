// Angle helpers of the vector models: sine and cosine together, the
// four-quadrant arctangent and the reduction to one turn, each following the
// scalar helpers of numeric.h lane by lane.
//
// Included once per SIMD target (Highway's per-target include guard).
#if defined(NORVANE_BATCH_ANGLES_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef NORVANE_BATCH_ANGLES_INL_H_
#undef NORVANE_BATCH_ANGLES_INL_H_
#else
#define NORVANE_BATCH_ANGLES_INL_H_
#endif

#include "core/astro/numeric.h"
#include "hwy/contrib/math/math-inl.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace norvane::HWY_NAMESPACE::batch {

namespace hn = hwy::HWY_NAMESPACE;
using Tag = hn::ScalableTag<double>;
using Vd = hn::Vec<Tag>;
using Md = hn::Mask<Tag>;

// Sine and cosine of x together, sharing one argument reduction: x is
// reduced by the nearest multiple q of pi/2 (pi/2 split in two parts), both are evaluated on
// [-pi/4, pi/4] by the minimax polynomials of fdlibm's kernels, and the
// quadrant q mod 4 swaps and negates them. Accurate to about one ulp.
struct SinCosLanes {
  Vd sin, cos;
};

HWY_INLINE SinCosLanes SinCos(Tag d, Vd angle) {
  // Whole turns off first: old element sets give anomalies of thousands of radians.
  const Vd turn = hn::Set(d, kTwoPi);
  const Vd x = angle - turn * hn::Round(angle / turn);
  const Vd q = hn::Round(x * hn::Set(d, 0.63661977236758134308));  // 2/pi
  const Vd r = (x - q * hn::Set(d, 1.57079632673412561417e+00)) - q * hn::Set(d, 6.07710050650619224932e-11);
  const Vd z = r * r;
  // Horner steps as fused multiply-adds where the processor has them.
  const auto step = [&](Vd acc, double coefficient) { return hn::MulAdd(acc, z, hn::Set(d, coefficient)); };
  const Vd sinPoly = step(step(step(step(hn::Set(d, 1.58969099521155010221e-10), -2.50507602534068634195e-08),
                                    2.75573137070700676789e-06),
                               -1.98412698298579493134e-04),
                          8.33333333332248946124e-03);
  const Vd s = hn::MulAdd(r * z, step(sinPoly, -1.66666666666666324348e-01), r);
  const Vd cosPoly =
      step(step(step(step(step(hn::Set(d, -1.13596475577881948265e-11), 2.08757232129817482790e-09),
                          -2.75573143513906633035e-07),
                     2.48015872894767294178e-05),
                -1.38888888888741095749e-03),
           4.16666666666666019037e-02);
  const Vd one = hn::Set(d, 1.0);
  const Vd halfZ = hn::Set(d, 0.5) * z;
  const Vd w = one - halfZ;
  const Vd c = w + (((one - w) - halfZ) + z * z * cosPoly);
  // Quadrant q mod 4, exact in doubles for these small multiples.
  const Vd quadrant = q - hn::Set(d, 4.0) * hn::Floor(q * hn::Set(d, 0.25));
  const Md one1 = quadrant == one;
  const Md three = quadrant == hn::Set(d, 3.0);
  const Md two = quadrant == hn::Set(d, 2.0);
  const Md odd = hn::Or(one1, three);
  const Md sinNegative = hn::Or(two, three);
  const Md cosNegative = hn::Or(one1, two);
  const Vd sinAbs = hn::IfThenElse(odd, c, s);
  const Vd cosAbs = hn::IfThenElse(odd, s, c);
  return {hn::IfThenElse(sinNegative, hn::Neg(sinAbs), sinAbs), hn::IfThenElse(cosNegative, hn::Neg(cosAbs), cosAbs)};
}

HWY_INLINE Vd SinOf(Tag d, Vd x) { return SinCos(d, x).sin; }
HWY_INLINE Vd CosOf(Tag d, Vd x) { return SinCos(d, x).cos; }

// AcTan of numeric.h per lane: the angle of (c, s) in [0, 2pi].
HWY_INLINE Vd AcTanLanes(Tag d, Vd s, Vd c) {
  const Vd zero = hn::Zero(d);
  const Vd q = hn::Atan(d, s / c);
  const Md north = s > zero;
  Vd r = hn::IfThenElse(north, q, q + hn::Set(d, kTwoPi));
  r = hn::IfThenElse(c < zero, hn::Set(d, kPi) + q, r);
  const Vd axis = hn::IfThenElse(north, hn::Set(d, kPi / 2.0), hn::Set(d, 3.0 * kPi / 2.0));
  return hn::IfThenElse(c == zero, axis, r);
}

// FMod2p of numeric.h per lane: x reduced to [0, 2pi).
HWY_INLINE Vd FMod2pLanes(Tag d, Vd x) {
  const Vd turn = hn::Set(d, kTwoPi);
  const Vd zero = hn::Zero(d);
  Vd r = x - turn * hn::Trunc(x / turn);
  r = hn::IfThenElse(r < zero, r + turn, r);
  return hn::IfThenElse(hn::And(x >= zero, x < turn), x, r);
}

}  // namespace norvane::HWY_NAMESPACE::batch
HWY_AFTER_NAMESPACE();

#endif  // NORVANE_BATCH_ANGLES_INL_H_
