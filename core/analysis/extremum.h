#pragma once
#include <cmath>

namespace norvane {

// A point of a minimum search and the function's value there.
struct Probe {
  double x = 0;
  double f = 0;
};

// Where the golden section divides an interval, from its lower end.
inline constexpr double kGoldenSection = 0.3819660112501051;  // (3 - sqrt 5) / 2

// Smallest value of a function on [a, b] by golden sections with parabolic
// steps, located to within tol (same unit as a and b), starting from three
// probes already made: best, second best and third. The search does not call
// the function itself: next() names the abscissa to evaluate and tell() takes
// the value there, so the caller may take as long as it likes over each one.
//   MinimumSearch m(a, b, best, second, third, tol);
//   for (double u = 0; m.next(u);) m.tell(g(u));
//   m.best();  // x and g(x)
class MinimumSearch {
 public:
  // A first step as long as the interval lets the parabola through the
  // three probes be tried at once.
  MinimumSearch(double a, double b, Probe best, Probe second, Probe third, double tol)
      : a_(a), b_(b), x_(best), w_(second), v_(third), d_(b - a), e_(b - a), tol_(tol) {}

  // The next abscissa to evaluate; false once the minimum is located.
  bool next(double& u);
  // The function's value at the abscissa next() gave.
  void tell(double fu);
  Probe best() const { return x_; }

 private:
  double a_;
  double b_;
  Probe x_;  // best so far
  Probe w_;  // second best
  Probe v_;  // previous second best
  double d_;
  double e_;
  double tol_;
  double u_ = 0;
  int iterations_ = 0;
};

inline bool MinimumSearch::next(double& u) {
  if (iterations_ >= 100) return false;
  const double middle = 0.5 * (a_ + b_);
  if (std::fabs(x_.x - middle) <= 2.0 * tol_ - 0.5 * (b_ - a_)) return false;
  bool golden = true;
  if (std::fabs(e_) > tol_) {
    // Parabola through x, w and v.
    const double r = (x_.x - w_.x) * (x_.f - v_.f);
    double q = (x_.x - v_.x) * (x_.f - w_.f);
    double p = (x_.x - v_.x) * q - (x_.x - w_.x) * r;
    q = 2.0 * (q - r);
    if (q > 0.0) p = -p;
    q = std::fabs(q);
    const double previous = e_;
    e_ = d_;
    if (std::fabs(p) < std::fabs(0.5 * q * previous) && p > q * (a_ - x_.x) && p < q * (b_ - x_.x)) {
      d_ = p / q;
      const double step = x_.x + d_;
      if (step - a_ < 2.0 * tol_ || b_ - step < 2.0 * tol_) d_ = x_.x < middle ? tol_ : -tol_;
      golden = false;
    }
  }
  if (golden) {
    e_ = x_.x < middle ? b_ - x_.x : a_ - x_.x;
    d_ = kGoldenSection * e_;
  }
  u_ = x_.x + (std::fabs(d_) >= tol_ ? d_ : (d_ > 0.0 ? tol_ : -tol_));
  u = u_;
  return true;
}

inline void MinimumSearch::tell(double fu) {
  ++iterations_;
  const Probe probe{u_, fu};
  if (fu <= x_.f) {
    (u_ < x_.x ? b_ : a_) = x_.x;
    v_ = w_;
    w_ = x_;
    x_ = probe;
  } else {
    (u_ < x_.x ? a_ : b_) = u_;
    if (fu <= w_.f || w_.x == x_.x) {
      v_ = w_;
      w_ = probe;
    } else if (fu <= v_.f || v_.x == x_.x || v_.x == w_.x) {
      v_ = probe;
    }
  }
}

}  // namespace norvane
