// The batch models against the scalar ones: every verification set and every
// set of the bundled element files, in the batch forms (many satellites at
// one time, one satellite at many times, any satellites each at its own
// time), on every SIMD target the machine runs.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "core/elements/element_text.h"
#include "core/propagation/batch_propagator.h"
#include "core/propagation/batch_sdp4.h"
#include "core/propagation/batch_sgp4.h"
#include "element_sets.h"
#include "hwy/targets.h"

namespace norvane {
namespace {

constexpr double kPositionToleranceKm = 1e-6;    // 1 mm
constexpr double kVelocityToleranceKmS = 1e-9;   // 1 um/s

struct Deviation {
  double positionKm = 0, velocityKmS = 0;
  int compared = 0, nonFinite = 0, illConditioned = 0;
};

// The scalar model's first call after initialisation at jd, as the batch
// defines its result, and whether that result is well conditioned: moving
// the time by 1e-9 minutes must not move it by more than the tolerance (near
// e = 1 Kepler's iteration may not settle, and rounding alone then moves the
// result by thousands of kilometres).
struct Scalar {
  test::Position p;
  bool wellConditioned = true;
};

Scalar scalarAt(ModelState& models, const WorkingSet& work, double jd) {
  const double tsince = (jd - epochToJulian(work.epoch)) * 1440.0;
  Scalar s;
  for (const double t : {tsince + 1e-9, tsince}) {
    models.flags = ModelFlags{};
    StateVector r, v;
    runModel(models, t, work, r, v, 0, 0);
    const test::Position p = test::inKilometres(r, v);
    if (t != tsince) s.p = p;
    else s.wellConditioned = !(test::distance(s.p.r, p.r) > kPositionToleranceKm ||
                               test::distance(s.p.v, p.v) > kVelocityToleranceKmS);
    s.p = p;
  }
  return s;
}

void compare(const Scalar& reference, const BatchStates& batch, std::size_t row, Deviation& dev) {
  const test::Position& scalar = reference.p;
  if (!reference.wellConditioned) {
    ++dev.illConditioned;
    return;
  }
  StateVector r{batch.at(StateField::X, row), batch.at(StateField::Y, row), batch.at(StateField::Z, row), 0};
  StateVector v{batch.at(StateField::Vx, row), batch.at(StateField::Vy, row), batch.at(StateField::Vz, row), 0};
  const bool finite = std::isfinite(scalar.r.x + scalar.r.y + scalar.r.z + scalar.v.x + scalar.v.y + scalar.v.z);
  if (!finite) {
    // Where the scalar model gives no number the batch gives none either.
    EXPECT_FALSE(std::isfinite(r.x + r.y + r.z + v.x + v.y + v.z)) << "row " << row;
    ++dev.nonFinite;
    return;
  }
  dev.positionKm = std::max(dev.positionKm, test::distance(scalar.r, r));
  dev.velocityKmS = std::max(dev.velocityKmS, test::distance(scalar.v, v));
  ++dev.compared;
}

struct ModelSets {
  std::vector<Satellite> nearEarth, deepSpace;
};

ModelSets split(const std::vector<Satellite>& all) {
  ModelSets sets;
  for (const Satellite& s : all) (test::workingSetOf(s).isDeepSpace ? sets.deepSpace : sets.nearEarth).push_back(s);
  return sets;
}

std::vector<Satellite> bundledFile(const std::string& name) {
  std::ifstream in(std::string(NORVANE_DATA_DIR) + "/" + name, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(in), {}};
  auto catalogue = std::make_unique<Catalogue>();
  const int count = loadElementText(*catalogue, text);
  return {catalogue->satellites.begin(), catalogue->satellites.begin() + count};
}

// Each satellite over the day after its epoch, every 10 minutes.
template <class Batch>
Deviation overItsFirstDay(const std::vector<Satellite>& sats) {
  const Batch batch(sats);
  auto models = std::make_unique<ModelState>();
  Deviation dev;
  BatchStates out;
  for (std::size_t i = 0; i < sats.size(); ++i) {
    const WorkingSet work = test::workingSetOf(sats[i]);
    std::vector<double> jds;
    for (int m = 0; m <= 1440; m += 10) jds.push_back(epochToJulian(work.epoch) + m / 1440.0);
    batch.propagateTimes(i, jds, out);
    EXPECT_EQ(out.rows(), jds.size());
    for (std::size_t j = 0; j < jds.size(); ++j) compare(scalarAt(*models, work, jds[j]), out, j, dev);
  }
  return dev;
}

// All satellites together at times over the day from start, every 30 minutes.
template <class Batch>
Deviation togetherOverADay(const std::vector<Satellite>& sats, double start) {
  const Batch batch(sats);
  auto models = std::make_unique<ModelState>();
  Deviation dev;
  BatchStates out;
  for (int m = 0; m <= 1440; m += 30) {
    const double jd = start + m / 1440.0;
    batch.propagate(jd, out);
    EXPECT_EQ(out.rows(), sats.size());
    for (std::size_t i = 0; i < sats.size(); ++i) compare(scalarAt(*models, test::workingSetOf(sats[i]), jd), out, i, dev);
  }
  return dev;
}

void expectWithinTolerance(const Deviation& dev, const char* what) {
  std::printf("%-34s %-6s compared %6d  non-finite %3d  ill-conditioned %3d  max |dr| %.3g mm  max |dv| %.3g um/s\n",
              what, batchTargetName(), dev.compared, dev.nonFinite, dev.illConditioned, dev.positionKm * 1e6,
              dev.velocityKmS * 1e9);
  EXPECT_LT(dev.positionKm, kPositionToleranceKm) << what;
  EXPECT_LT(dev.velocityKmS, kVelocityToleranceKmS) << what;
}

std::vector<Satellite> verificationSatellites() {
  std::vector<Satellite> sats;
  for (const test::VerificationCase& c : test::readVerificationCases()) sats.push_back(c.sat);
  return sats;
}

double latestEpoch(const std::vector<Satellite>& sats) {
  double latest = 0;
  for (const Satellite& s : sats) latest = std::max(latest, epochToJulian(s.epoch));
  return latest;
}

TEST(BatchPropagation, MatchesTheScalarModelsOnEveryTarget) {
  const ModelSets verification = split(verificationSatellites());
  ASSERT_FALSE(verification.deepSpace.empty());
  std::vector<Satellite> bundled = bundledFile("visual_2017-04-14.txt");
  const std::vector<Satellite> iridium = bundledFile("iridium_2014-06-21.txt");
  ASSERT_GT(bundled.size(), 100u);
  ASSERT_GT(iridium.size(), 50u);
  const ModelSets visual = split(bundled);

  int targets = 0;
  for (const std::int64_t target : hwy::SupportedAndGeneratedTargets()) {
    hwy::SetSupportedTargetsForTest(target);
    // Instrumented builds leave some targets out of the batch models.
    if (std::string(batchTargetName()) != hwy::TargetName(target)) continue;
    ++targets;
    expectWithinTolerance(overItsFirstDay<BatchSgp4>(verification.nearEarth), "SGP4 verification sets, by time");
    expectWithinTolerance(overItsFirstDay<BatchSdp4>(verification.deepSpace), "SDP4 verification sets, by time");
    expectWithinTolerance(overItsFirstDay<BatchSgp4>(visual.nearEarth), "SGP4 visual file, by time");
    expectWithinTolerance(togetherOverADay<BatchSgp4>(visual.nearEarth, latestEpoch(bundled)),
                          "SGP4 visual file, together");
    expectWithinTolerance(togetherOverADay<BatchSgp4>(iridium, latestEpoch(iridium)), "SGP4 iridium file, together");
  }
  hwy::SetSupportedTargetsForTest(0);
  EXPECT_GE(targets, 1);
}

// A resonant orbit far from its epoch integrates many steps; the batch must
// follow the scalar integration there too, and rows outside the requested
// range must stay untouched.
TEST(BatchPropagation, ResonantLanesAndRowRanges) {
  const ModelSets verification = split(verificationSatellites());
  const BatchSdp4 batch(verification.deepSpace);
  EXPECT_GT(batch.resonantCount(), 2u);
  auto models = std::make_unique<ModelState>();
  const double jd = latestEpoch(verification.deepSpace) + 400.0;
  BatchStates out;
  out.resize(batch.size());
  batch.propagateRows(jd, 0, 1, out);
  Deviation dev;
  compare(scalarAt(*models, test::workingSetOf(verification.deepSpace[0]), jd), out, 0, dev);
  const std::size_t last = batch.size() - 1;
  if (last >= kBatchRowPadding) {
    EXPECT_EQ(out.at(StateField::X, last), 0.0);
  }
  batch.propagate(jd, out);
  for (std::size_t i = 0; i < batch.size(); ++i)
    compare(scalarAt(*models, test::workingSetOf(verification.deepSpace[i]), jd), out, i, dev);
  expectWithinTolerance(dev, "SDP4 verification sets, +400 days");

  const BatchSgp4 none(std::span<const Satellite>{});
  none.propagate(jd, out);
  EXPECT_EQ(out.rows(), 0u);
}

// An element set without an orbit (mean motion 0) gives no number in its own
// lane and leaves its neighbours' lanes alone.
TEST(BatchPropagation, ALaneWithoutAnOrbitKeepsToItself) {
  std::vector<Satellite> sats = bundledFile("iridium_2014-06-21.txt");
  ASSERT_GT(sats.size(), 9u);
  sats.resize(9);
  const double jd = latestEpoch(sats) + 0.25;
  BatchStates clean, mixed;
  BatchSgp4(sats).propagate(jd, clean);
  sats.insert(sats.begin() + 2, Satellite{});
  BatchSgp4(sats).propagate(jd, mixed);
  EXPECT_FALSE(std::isfinite(mixed.at(StateField::X, 2)));
  for (std::size_t i = 0; i < clean.rows(); ++i) {
    const std::size_t row = i < 2 ? i : i + 1;
    for (std::size_t f = 0; f < 6; ++f) {
      EXPECT_EQ(clean.at(static_cast<StateField>(f), i), mixed.at(static_cast<StateField>(f), row)) << i;
    }
  }
}

// Requests in shuffled order, several per satellite, at times over the day
// after its own epoch and over a day a month later (where the verification
// file's decaying sets have fallen and resonant sets integrate for 60 steps);
// each against a fresh scalar model, with one satellite that has no orbit
// among them.
TEST(BatchPropagation, ManySatellitesEachAtItsOwnTime) {
  std::vector<Satellite> sats = verificationSatellites();
  for (const char* file : {"visual_2017-04-14.txt", "iridium_2014-06-21.txt"}) {
    const std::vector<Satellite> more = bundledFile(file);
    sats.insert(sats.end(), more.begin(), more.end());
  }
  const std::size_t orbitless = sats.size() / 2;
  sats.insert(sats.begin() + static_cast<std::ptrdiff_t>(orbitless), Satellite{});
  const BatchPropagator batch(sats);
  ASSERT_EQ(batch.size(), sats.size());
  std::mt19937 random(7);
  std::uniform_real_distribution<double> day(0.0, 1.0);
  std::vector<std::uint32_t> which;
  std::vector<double> jds;
  for (std::uint32_t i = 0; i < sats.size(); ++i) {
    for (int n = 0; n < 6; ++n) {
      which.push_back(i);
      jds.push_back(epochToJulian(sats[i].epoch) + (n % 2 == 0 ? 0.0 : 30.0) + day(random));
    }
  }
  std::vector<std::size_t> order(which.size());
  for (std::size_t k = 0; k < order.size(); ++k) order[k] = k;
  std::shuffle(order.begin(), order.end(), random);
  std::vector<std::uint32_t> shuffledWhich;
  std::vector<double> shuffledJds;
  for (const std::size_t k : order) {
    shuffledWhich.push_back(which[k]);
    shuffledJds.push_back(jds[k]);
  }

  int targets = 0;
  for (const std::int64_t target : hwy::SupportedAndGeneratedTargets()) {
    hwy::SetSupportedTargetsForTest(target);
    if (std::string(batchTargetName()) != hwy::TargetName(target)) continue;
    ++targets;
    BatchStates out;
    batch.statesAt(shuffledWhich, shuffledJds, out);
    ASSERT_EQ(out.rows(), shuffledWhich.size());
    auto models = std::make_unique<ModelState>();
    Deviation nearEarth, deepSpace;
    for (std::size_t k = 0; k < out.rows(); ++k) {
      const std::uint32_t i = shuffledWhich[k];
      if (i == orbitless) {
        EXPECT_FALSE(std::isfinite(out.at(StateField::X, k) + out.at(StateField::Vz, k)));
        continue;
      }
      const WorkingSet work = test::workingSetOf(sats[i]);
      compare(scalarAt(*models, work, shuffledJds[k]), out, k, work.isDeepSpace != 0 ? deepSpace : nearEarth);
    }
    EXPECT_GT(deepSpace.compared, 100);
    expectWithinTolerance(nearEarth, "SGP4 all sets, each at its own time");
    expectWithinTolerance(deepSpace, "SDP4 all sets, each at its own time");
  }
  hwy::SetSupportedTargetsForTest(0);
  EXPECT_GE(targets, 1);
}

}  // namespace
}  // namespace norvane
