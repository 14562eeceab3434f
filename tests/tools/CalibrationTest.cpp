// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibrate/Calibration.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "analysis/QBMusicXMLParser.h"
#include "calibrate/DefinitionFile.h"
#include "model/QBOvertone.h"
#include "model/QBSpectrum.h"
#include "support/Guitar.h"
#include "support/StandardStore.h"

namespace korvel::tools {
namespace {

using test::Strum;

class CalibrationTest : public testing::Test {
 protected:
  std::string record(const std::vector<Strum>& strums, int rate = 44100, int channels = 1) {
    const std::string file = m_store.folder().file("note" + std::to_string(++m_files) + ".wav");
    test::writeWav(file, test::play(strums), rate, channels);
    return file;
  }
  /// Two seconds of a note, six blocks.
  void add(int note) { m_calibration.addNote(record({{{note}, 2.0}}), note); }
  /// One note for each of the upper strings.
  void addUpperStrings() {
    for (const int note : {57, 60, 69}) add(note);
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
  Calibration m_calibration{"Guitar", 0.75F};
  int m_files = 0;
};

TEST_F(CalibrationTest, entersHarmonicsWhereTheOpenStringHasThem) {
  add(43);  // Fret 3 of the lowest string: all of it is heard three frets above its entry.
  addUpperStrings();
  m_calibration.finish(0.7);
  EXPECT_EQ(overtonesOf(0), "0,0 x6  2,2 x5  ") << "itself and the octave";
  EXPECT_EQ(overtonesOf(2), "2,0 x12  4,3 x10  ") << "two notes within its reach";
  EXPECT_EQ(overtonesOf(5), "5,0 x6  ") << "its harmonics are beyond the detection";
}

TEST_F(CalibrationTest, dropsWhatIsSeldomHeard) {
  const std::string file = record({{{43}, 4.0}, {{43, 48}, 2.0}});
  m_calibration.addNote(file, 43);
  addUpperStrings();
  m_calibration.finish(0.2);
  EXPECT_NE(overtonesOf(0).find("1,0 x"), std::string::npos) << "in a third of the blocks";

  Calibration stricter("Guitar", 0.75F);
  stricter.addNote(file, 43);
  for (const int note : {57, 60, 69}) stricter.addNote(record({{{note}, 2.0}}), note);
  stricter.finish(0.6);
  EXPECT_EQ(overtonesOf(0).find("1,0 x"), std::string::npos);
}

TEST_F(CalibrationTest, readerTakesTheWholeDefinition) {
  add(43);
  addUpperStrings();
  QBInstrument& measured = m_calibration.finish(0.2);
  std::string before;
  for (int string = 0; string < 6; ++string) before += overtonesOf(string);

  const std::string file = m_store.folder().file("guitar.xml");
  test::writeFile(file, definitionText(measured));
  QBMusicXMLParser(file).parse();
  QBInstrument& read = newest();
  ASSERT_NE(&read, &measured);
  std::string after;
  for (int string = 0; string < 6; ++string) after += overtonesOf(string);
  EXPECT_EQ(after, before);
  EXPECT_EQ(read.name(), "Guitar");
  EXPECT_EQ(read.detaillevel(), 0.75F);
  const QBOvertone& octave = *read.findSpectrumByString(0)->findOvertone(2, 2);
  EXPECT_EQ(octave.offset(), 12);
  EXPECT_EQ(octave.note(), 4);
  EXPECT_NEAR(octave.amp(), measured.findSpectrumByString(0)->findOvertone(2, 2)->amp(), 1e-6);
  EXPECT_TRUE(read.findSpectrumByString(5)->isCalibrated());

  measured.setName("Pete's");
  EXPECT_THROW(definitionText(measured), std::invalid_argument) << "the reader would stop there";
}

TEST_F(CalibrationTest, refusesRecordingsThatWouldMislead) {
  const auto refused = [this](const std::string& file, int note) {
    try {
      m_calibration.addNote(file, note);
    } catch (const std::runtime_error& error) {
      return std::string(error.what()).find(file) != std::string::npos;
    }
    return false;
  };
  const Strum note{{43}, 1.0};
  EXPECT_TRUE(refused(record({note}, 48000), 43)) << "would be heard a semitone and a half too low";
  EXPECT_TRUE(refused(record({note}, 44100, 2), 43));
  EXPECT_TRUE(refused(record({note}), 39)) << "below the lowest string";
  EXPECT_TRUE(refused(record({note}), 77)) << "above fret 12 of the highest";
  EXPECT_TRUE(refused(record({{{}, 1.0}}), 43)) << "silence";
  EXPECT_TRUE(refused(m_store.folder().file("missing.wav"), 43));
  EXPECT_THROW(m_calibration.finish(0.2), std::runtime_error) << "nothing was measured";
}

}  // namespace
}  // namespace korvel::tools
