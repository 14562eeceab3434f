// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/spectrum/QBFrequencyMapper.h"

#include "support/Testing.h"

namespace korvel {
namespace {

double midiPitch(float hertz) { return 69 + 12 * std::log2(static_cast<double>(hertz) / 440); }

struct Entry {
  long bin;
  float tone;
};

std::vector<Entry> tonesOf(std::span<const float> table, long firstBin) {
  std::vector<Entry> entries;
  for (std::size_t i = 0; i < table.size(); ++i)
    if (table[i] != 0) entries.push_back({firstBin + static_cast<long>(i), table[i]});
  return entries;
}

/// Every semitone once from a MIDI note up, and how many bins each stands above the nearest one.
std::vector<long> shiftsOf(const std::vector<Entry>& entries, int lowest, float width) {
  std::vector<long> shifts;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    EXPECT_NEAR(midiPitch(entries[i].tone), lowest + static_cast<double>(i), 0.01) << i;
    shifts.push_back(entries[i].bin - std::lround(entries[i].tone / width));
  }
  return shifts;
}

TEST(QBFrequencyMapper, placesEverySemitoneFromD2ToE5) {
  const auto table = QBFrequencyMapper::smallD(nullptr);
  EXPECT_EQ(table.size(), 225U);
  std::vector<long> nearest(39, 0);
  nearest[0] = 1;   // D2 stands above the bin nearest to it, as intended,
  nearest[2] = -1;  // and E2 below: stored songs depend on both.
  EXPECT_EQ(shiftsOf(tonesOf(table, QBFrequencyMapper::kSmallDFirstBin), 38,
                     QBFrequencyMapper::kBinWidth),
            nearest);
  EXPECT_EQ(table[13], 110.0F);
  EXPECT_EQ(table[3], 0.0F);
}

TEST(QBFrequencyMapper, placesTheCoarseTonesFromE2) {
  const auto table = QBFrequencyMapper::bigD(nullptr);
  EXPECT_EQ(table.size(), 112U);
  EXPECT_EQ(shiftsOf(tonesOf(table, QBFrequencyMapper::bigDOffset()), 40,
                     2 * QBFrequencyMapper::kBinWidth),
            std::vector<long>(37, 0));
}

}  // namespace
}  // namespace korvel
