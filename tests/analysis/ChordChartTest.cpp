// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/beats/ChordChart.h"

#include "support/Testing.h"

namespace korvel {
namespace {

using rhythm::ChordSpan;
using rhythm::Quality;

TEST(ChordChart, hasFourBarsALineBehindThePickUp) {
  rhythm::Reading reading;
  reading.key = {5, false};
  reading.chords = {{-24, -12, -1, Quality::major},   {-12, 24, 9, Quality::minor},
                    {24, 48, 5, Quality::major},      {48, 156, -1, Quality::major},
                    {156, 252, 10, Quality::seventh}, {252, 300, -1, Quality::major}};
  reading.chords[2].probability = 0.4;
  reading.chords[3].probability = 0.4;  // of nothing
  EXPECT_EQ(chordChart(reading),
            "| Am | Am . F? . | - | - | - Bb7 . . |\n"
            "| Bb7 . . . | Bb7 - . . |\n");
  reading.chords = {{0, 24, -1, Quality::major}};
  EXPECT_EQ(chordChart(reading), "");
}

}  // namespace
}  // namespace korvel
