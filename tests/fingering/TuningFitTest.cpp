// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/TuningFit.h"

#include "support/Testing.h"

namespace korvel::fingering {
namespace {

using Tuning = OpenPitches;

constexpr Tuning kOpenG{38, 43, 50, 55, 59, 62};
constexpr Tuning kDadgad{38, 45, 50, 55, 57, 62};
constexpr Tuning kDStandard{38, 43, 48, 53, 57, 62};
constexpr Tuning kOpenE{40, 47, 52, 56, 59, 64};
constexpr Tuning kEFlat{39, 44, 49, 54, 58, 63};
const std::vector<std::string> kOpenGrips{"022100", "x02210", "320003", "x32010", "xx0232"};

std::vector<Strings> unmoved(const std::vector<Tuning>& tunings) {
  std::vector<Strings> all;
  for (const Tuning& tuning : tunings) all.push_back({tuning});
  return all;
}

/// Four times round, each grip twice, two a second.
std::vector<Note> played(const std::vector<std::string>& grips, const Tuning& tuning) {
  std::vector<Note> notes;
  double at = 0;
  for (std::size_t i = 0; i < 8 * grips.size(); ++i, at += 0.5) {
    const std::string& grip = grips[i / 2 % grips.size()];
    for (std::size_t s = 0; s < grip.size(); ++s)
      if (grip[s] != 'x')
        notes.push_back(
            {.onset = at, .end = at + 0.45, .pitch = tuning[s] + grip[s] - '0', .strength = 1});
  }
  return notes;
}

TEST(TuningFitTest, aPieceTellsItsTuningByLowNotesAndOpenStrings) {
  const std::vector<Strings> tunings =
      unmoved({kStandardPitches, kDropDPitches, kOpenG, kDadgad, kDStandard, kOpenE});
  struct Piece {
    std::vector<std::string> grips;
    Tuning tuning;
  };
  for (const Piece& piece :
       {Piece{kOpenGrips, kStandardPitches},
        Piece{{"x35553", "577655", "133211", "x24432", "355433"}, kStandardPitches},
        Piece{{"0xxxxx", "3xxxxx", "x0xxxx", "x2xxxx", "xx0xxx"}, kStandardPitches},
        Piece{{"000xxx", "555xxx", "333xxx", "777xxx"}, kDropDPitches},
        Piece{{"000232", "x02210", "000232", "x32010"}, kDropDPitches},
        Piece{{"000200", "xx0200", "5x5400", "x00200", "0x0400"}, kDadgad},
        Piece{{"x00000", "x02010", "x55555", "x00000", "x03020"}, kOpenG},
        Piece{kOpenGrips, kDStandard},
        Piece{{"022000", "000000", "002010", "555555", "0x2010"}, kOpenE}}) {
    const auto notes = played(piece.grips, piece.tuning);
    const auto found = otherTuning(kStandardPitches, tunings, {}, notes);
    EXPECT_EQ(found ? found->open : kStandardPitches, piece.tuning) << piece.grips.front();
    EXPECT_FALSE(otherTuning(piece.tuning, tunings, {}, notes)) << "known already";
    const std::span few(notes.data(), 8);
    EXPECT_FALSE(otherTuning(kStandardPitches, tunings, {}, few)) << "too little to tell";
  }
  EXPECT_FALSE(otherTuning(kStandardPitches, tunings, {}, {}));
}

TEST(TuningFitTest, aPieceOnStringsThatAreAllMovedTellsIt) {
  const Tuning raisedStrings = Strings{kStandardPitches, 1}.sounding();
  for (const int moved : {-1, 1}) {
    const std::vector<Strings> others{{kStandardPitches, moved}, {kDropDPitches}, {kDStandard}};
    const Tuning sounding = others.front().sounding();
    EXPECT_EQ(sounding, moved < 0 ? kEFlat : raisedStrings);
    EXPECT_EQ(otherTuning(kStandardPitches, others, {}, played(kOpenGrips, sounding)),
              others.front());
    EXPECT_FALSE(otherTuning(kStandardPitches, others, {}, played(kOpenGrips, kStandardPitches)));
  }
  const auto behindCapo = played(kOpenGrips, raisedStrings);
  EXPECT_FALSE(otherTuning(kStandardPitches, std::vector<Strings>{{raisedStrings}}, {}, behindCapo))
      << "a capo is likelier than another tuning";
}

}  // namespace
}  // namespace korvel::fingering
