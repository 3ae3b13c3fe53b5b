#pragma once
#include <array>
#include <cstddef>
#include <vector>

namespace norvane {

// Rows of every column are padded to a multiple of this, enough for the
// widest vector registers (32 doubles), so the kernels load and store whole
// vectors without a tail loop.
inline constexpr std::size_t kBatchRowPadding = 32;

inline constexpr std::size_t paddedRows(std::size_t rows) {
  return (rows + kBatchRowPadding - 1) / kBatchRowPadding * kBatchRowPadding;
}

// A structure of arrays: one contiguous column of doubles per field of the
// enumeration Field (which ends with Count), one row per satellite. Padding
// rows repeat the last real row, so they compute harmless finite values.
template <typename Field>
class SoaColumns {
 public:
  static constexpr std::size_t kFields = static_cast<std::size_t>(Field::Count);

  void resize(std::size_t rows) {
    rows_ = rows;
    padded_ = paddedRows(rows);
    data_.assign(kFields * padded_, 0.0);
  }
  std::size_t rows() const { return rows_; }
  std::size_t padded() const { return padded_; }

  double* column(Field f) { return data_.data() + static_cast<std::size_t>(f) * padded_; }
  const double* column(Field f) const { return data_.data() + static_cast<std::size_t>(f) * padded_; }
  double& at(Field f, std::size_t row) { return column(f)[row]; }
  double at(Field f, std::size_t row) const { return column(f)[row]; }

  // Copies the last real row into the padding rows.
  void fillPadding() {
    if (rows_ == 0) return;
    for (std::size_t f = 0; f < kFields; ++f) {
      double* c = data_.data() + f * padded_;
      for (std::size_t r = rows_; r < padded_; ++r) c[r] = c[rows_ - 1];
    }
  }

  // One row as an array indexed by field, for broadcasting a single
  // satellite over many times.
  std::array<double, kFields> row(std::size_t r) const {
    std::array<double, kFields> values{};
    for (std::size_t f = 0; f < kFields; ++f) values[f] = data_[f * padded_ + r];
    return values;
  }

 private:
  std::size_t rows_ = 0;
  std::size_t padded_ = 0;
  std::vector<double> data_;
};

// Doubles per row of a row-major copy of SoaColumns<Field>: the fields
// rounded up to whole 64-byte cache lines.
template <typename Field>
inline constexpr std::size_t kRowStride = (static_cast<std::size_t>(Field::Count) + 7) / 8 * 8;

// The rows of c side by side, kRowStride<Field> doubles each, for loading one
// satellite's values from a few cache lines.
template <typename Field>
std::vector<double> rowMajorCopy(const SoaColumns<Field>& c) {
  constexpr std::size_t kFields = SoaColumns<Field>::kFields;
  std::vector<double> rows(c.rows() * kRowStride<Field>);
  for (std::size_t f = 0; f < kFields; ++f) {
    const double* column = c.column(static_cast<Field>(f));
    for (std::size_t r = 0; r < c.rows(); ++r) rows[r * kRowStride<Field> + f] = column[r];
  }
  return rows;
}

// Positions (km) and velocities (km/s) of a batch, one row per satellite or
// per time, in the models' inertial frame.
enum class StateField { X, Y, Z, Vx, Vy, Vz, Count };
using BatchStates = SoaColumns<StateField>;

}  // namespace norvane
