#pragma once
#include <cmath>

namespace norvane {

// A point of a minimum search and the function's value there.
struct Probe {
  double x = 0;
  double f = 0;
};

// Smallest value of g on [a, b] by golden sections with parabolic steps,
// located to within tol (same unit as a and b), starting from three probes
// already made: best, second best and third. Returns x; g(x) in fx.
template <typename F>
double minimiseFrom(F&& g, double a, double b, Probe best, Probe second, Probe third, double tol, double& fx) {
  constexpr double kGolden = 0.3819660112501051;  // (3 - sqrt 5) / 2
  double x = best.x;
  fx = best.f;
  double w = second.x;
  double fw = second.f;
  double v = third.x;
  double fv = third.f;
  // A first step as long as the interval lets the parabola through the three
  // probes be tried at once.
  double d = b - a;
  double e = b - a;
  for (int iteration = 0; iteration < 100; ++iteration) {
    const double middle = 0.5 * (a + b);
    if (std::fabs(x - middle) <= 2.0 * tol - 0.5 * (b - a)) break;
    bool golden = true;
    if (std::fabs(e) > tol) {
      // Parabola through x, w and v.
      const double r = (x - w) * (fx - fv);
      double q = (x - v) * (fx - fw);
      double p = (x - v) * q - (x - w) * r;
      q = 2.0 * (q - r);
      if (q > 0.0) p = -p;
      q = std::fabs(q);
      const double previous = e;
      e = d;
      if (std::fabs(p) < std::fabs(0.5 * q * previous) && p > q * (a - x) && p < q * (b - x)) {
        d = p / q;
        const double u = x + d;
        if (u - a < 2.0 * tol || b - u < 2.0 * tol) d = x < middle ? tol : -tol;
        golden = false;
      }
    }
    if (golden) {
      e = x < middle ? b - x : a - x;
      d = kGolden * e;
    }
    const double u = x + (std::fabs(d) >= tol ? d : (d > 0.0 ? tol : -tol));
    const double fu = g(u);
    if (fu <= fx) {
      (u < x ? b : a) = x;
      v = w;
      fv = fw;
      w = x;
      fw = fx;
      x = u;
      fx = fu;
    } else {
      (u < x ? a : b) = u;
      if (fu <= fw || w == x) {
        v = w;
        fv = fw;
        w = u;
        fw = fu;
      } else if (fu <= fv || v == x || v == w) {
        v = u;
        fv = fu;
      }
    }
  }
  return x;
}

// The same from scratch: the first probe at the golden section of [a, b].
template <typename F>
double minimiseOn(F&& g, double a, double b, double tol, double& fx) {
  const double x = a + 0.3819660112501051 * (b - a);
  const double f = g(x);
  return minimiseFrom(g, a, b, {x, f}, {x, f}, {x, f}, tol, fx);
}

}  // namespace norvane
