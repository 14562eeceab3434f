// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/instrument/Calibration.h"

#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "support/Testing.h"
#include "support/sound/Guitar.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

using test::Strum;

struct CalibrationTest : testing::Test {
  /// Blocks of what is played, as one note.
  static void add(Calibration& calibration, const std::vector<Strum>& strums, int note) {
    const auto samples = test::play(strums);
    for (std::size_t begin = 0; begin < samples.size(); begin += 16384) {
      const std::size_t size = std::min<std::size_t>(16384, samples.size() - begin);
      calibration.addBlock(calibration.tonesIn(std::span(samples).subspan(begin, size)), note);
    }
  }
  /// Two seconds of a note, six blocks.
  static void add(Calibration& calibration, int note) { add(calibration, {{{note}, 2.0}}, note); }
  /// One note for each of the upper strings.
  static void addUpperStrings(Calibration& calibration) {
    for (const int note : {57, 60, 69}) add(calibration, note);
  }
  static QBInstrument& newest() { return *QBTabMgr::db().instruments().back(); }
  /// Of a string of the newest instrument, by offset: "string,fret xhits".
  static std::string overtonesOf(int string) {
    auto tones = newest().findSpectrumByString(string)->overtones().snapshot();
    std::ranges::sort(tones, {}, [](const auto& tone) { return tone->offset(); });
    std::ostringstream line;
    for (const auto& tone : tones)
      line << tone->string() << ',' << tone->fret() << " x" << tone->hits() << "  ";
    return line.str();
  }

  test::StandardStore m_store;
  Calibration m_calibration{*m_store.standard()};
};

TEST_F(CalibrationTest, entersHarmonicsWhereTheOpenStringHasThem) {
  add(m_calibration, 43);  // Fret 3 of the lowest string: what is heard is entered 3 frets lower.
  EXPECT_EQ(m_calibration.unknownStrings(), (std::vector{1, 2, 3, 4, 5}));
  addUpperStrings(m_calibration);
  EXPECT_TRUE(m_calibration.unknownStrings().empty());
  m_calibration.createInstrument(QBTabMgr::db(), "Guitar", 0.75F, 0.7);
  EXPECT_EQ(overtonesOf(0), "0,0 x6  2,2 x5  ") << "itself and the octave";
  EXPECT_EQ(overtonesOf(2), "2,0 x12  4,3 x10  ") << "two notes within its reach";
  EXPECT_EQ(overtonesOf(5), "5,0 x6  ") << "its harmonics are beyond the detection";
}

TEST_F(CalibrationTest, dropsWhatIsSeldomHeard) {
  add(m_calibration, {{{43}, 4.0}, {{43, 48}, 2.0}}, 43);
  addUpperStrings(m_calibration);
  m_calibration.createInstrument(QBTabMgr::db(), "Guitar", 0.75F, 0.2);
  EXPECT_NE(overtonesOf(0).find("1,0 x"), std::string::npos) << "in a third of the blocks";
  m_calibration.createInstrument(QBTabMgr::db(), "Guitar", 0.75F, 0.6);
  EXPECT_EQ(overtonesOf(0).find("1,0 x"), std::string::npos);
}

TEST_F(CalibrationTest, measuresWhereStringsSoundAsTheyAreCounted) {
  EXPECT_TRUE(Calibration::canMeasure(*m_store.standard()));
  EXPECT_TRUE(Calibration::canMeasure(*m_store.dropD()));
  QBTuning* openG = QBTabMgr::db().createTuning("Open G", 3);
  openG->createOpenGStrings();
  EXPECT_FALSE(Calibration::canMeasure(*openG)) << "its lowest string is an octave below";
  EXPECT_FALSE(m_calibration.isReached(39)) << "below the lowest string";
  EXPECT_TRUE(m_calibration.isReached(76));
  EXPECT_FALSE(m_calibration.isReached(77)) << "above fret 12 of the highest";
  const auto octave = test::play({{{64}, 1.0}});
  for (const HeardTone& tone : m_calibration.tonesIn(std::span(octave).first(16384)))
    EXPECT_GE(tone.midi, 63) << "what no place plays must not count as the lowest string";
}

}  // namespace
}  // namespace korvel
