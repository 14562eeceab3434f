// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/chords/TuningsToTry.h"

#include "support/Testing.h"

namespace korvel {
namespace {

TEST(TuningsToTryTest, stringsOfAFarAComeBeforeTuningsThatSoundSo) {
  using fingering::Strings;
  constexpr OpenPitches kEFlat{39, 44, 49, 54, 58, 63};
  constexpr OpenPitches kDropC{36, 43, 48, 53, 57, 62};
  const std::vector<OpenPitches> known{kStandardPitches, kDropDPitches, kEFlat, kDropC};
  const auto tried = [&](double offset) { return tuningsToTry(kStandardPitches, known, offset); };
  const std::vector<Strings> usual{{kStandardPitches}, {kDropDPitches}, {kEFlat}};
  EXPECT_EQ(tried(25), usual) << "nobody hears as low as Drop C";
  EXPECT_EQ(tried(-25), usual);
  const std::vector<Strings> low{{kStandardPitches, -1}, {kStandardPitches}, {kDropDPitches}};
  EXPECT_EQ(tried(40), low) << "Standard at A = 425 Hz, not Eb at 450";
  EXPECT_EQ(tried(-40).front(), (Strings{kStandardPitches, 1}));
  EXPECT_EQ(tuningsToTry(kDropDPitches, {}, 40), std::vector<Strings>{}) << "too low, too";
}

}  // namespace
}  // namespace korvel
