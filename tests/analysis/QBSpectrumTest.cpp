// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/instruments/QBSpectrum.h"

#include "analysis/instrument/ToneFilter.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBString.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

struct QBSpectrumTest : testing::Test {
  QBSpectrumTest() {
    m_guitar = QBTabMgr::db().createInstrument(m_store.standard(), "Guitar", true, true, 0.5F, 1);
    m_lowE = m_guitar->findSpectrumByString(0);
  }
  /// An overtone so many semitones above the tone that is played.
  QBOvertone* overtone(QBSpectrum* spectrum, int offset, int hits) {
    QBOvertone* added = spectrum->addOvertone(0, offset, 0, offset, 0.0, 1e6);
    added->setHits(hits);
    return added;
  }
  const QBChord& chord(const char* frets) { return *test::addChord(m_song, frets); }

  test::StandardStore m_store;
  QBSong* m_song = m_store.song("song");
  QBInstrument* m_guitar;
  QBSpectrum* m_lowE;
};

TEST_F(QBSpectrumTest, tonePassesWithItsShareOfTheHits) {
  overtone(m_lowE, 0, 3);
  overtone(m_lowE, 12, 1);
  EXPECT_TRUE(filterLowerE(*m_guitar, 3, chord("3xxxxx")));
  EXPECT_FALSE(filterLowerE(*m_guitar, 3, chord("xx5xxx"))) << "the octave alone: 1 of 4";
  EXPECT_FALSE(filterLowerE(*m_guitar, 3, chord("4xxxxx")));
  EXPECT_FALSE(filterLowerE(*m_guitar, 0, chord("xxxxxx")));
}

TEST_F(QBSpectrumTest, spectrumWithoutOvertonesLetsEveryTonePass) {
  EXPECT_TRUE(filterLowerE(*m_guitar, 0, chord("xxxxxx")));
}

TEST_F(QBSpectrumTest, everyStringIsTestedWithItsOwnSpectrum) {
  for (const auto& spectrum : m_guitar->readAllSpectrums()) overtone(spectrum, 0, 1);
  const char* open[] = {"0xxxxx", "x0xxxx", "xx0xxx", "xxx0xx", "xxxx0x", "xxxxx0"};
  for (std::size_t sounding = 0; sounding < 6; ++sounding) {
    const QBChord& single = chord(open[sounding]);
    const bool passes[] = {filterLowerE(*m_guitar, 0, single), filterA(*m_guitar, 0, single),
                           filterD(*m_guitar, 0, single),      filterG(*m_guitar, 0, single),
                           filterB(*m_guitar, 0, single),      filterUpperE(*m_guitar, 0, single)};
    for (std::size_t string = 0; string < 6; ++string)
      EXPECT_EQ(passes[string], string == sounding) << sounding << ' ' << string;
  }
}

TEST_F(QBSpectrumTest, shareIsComputedInSinglePrecision) {
  m_guitar->setDetaillevel(0.85F);  // a little more than 0.85, so that 17 of 20 is just too few
  overtone(m_lowE, 0, 17);
  overtone(m_lowE, 12, 3);
  EXPECT_TRUE(filterLowerE(*m_guitar, 0, chord("0xxxxx"))) << "but the product is rounded to 17";
}

TEST_F(QBSpectrumTest, offsetsFollowTheSelectedTuning) {
  QBOvertone* octave = m_lowE->addOvertone(2, 2, 4, 77, 0.0, 1e6);
  m_guitar->findSpectrumByString(3)->addOvertone(0, 1, 5, 0, 0.0, 1e6);
  QBTabMgr::db().computeOffsets();
  EXPECT_EQ(octave->offset(), 12);
  EXPECT_EQ(m_guitar->findSpectrumByString(3)->findOvertone(0, 1)->offset(), 4 + 1 - 19);
  QBTabMgr::db().selectTuning(m_store.dropD());
  QBTabMgr::db().computeOffsets();
  EXPECT_EQ(octave->offset(), 14);
  QBOvertone* nowhere = m_lowE->addOvertone(6, 0, 0, 5, 0.0, 1e6);
  m_lowE->computeOffsets(OpenStrings());
  EXPECT_EQ(nowhere->offset(), 5) << "on no string: left as the file had it";
  QBTabMgr::db().deselectAllInstruments();
  EXPECT_NO_THROW(QBTabMgr::db().computeOffsets()) << "nothing to do without an instrument";
}

TEST_F(QBSpectrumTest, overtonesAreFoundByPositionAndCleanedUpByHits) {
  for (int hits = 0; hits < 4; ++hits) overtone(m_lowE, hits, hits);
  QBOvertone* later = overtone(m_lowE, 3, 9);
  EXPECT_EQ(m_lowE->findOvertone(0, 3), later) << "the last of a position";
  m_lowE->cleanupTones();
  EXPECT_EQ(m_lowE->overtones().size(), 2U);
  EXPECT_EQ(m_lowE->findOvertone(0, 2), nullptr);
  m_lowE->deleteOvertone(later);
  ASSERT_NE(m_lowE->findOvertone(0, 3), nullptr);
  EXPECT_EQ(m_lowE->findOvertone(0, 3)->increaseHits(), 4);
  EXPECT_TRUE(m_lowE->findOvertone(0, 3)->equals(0, 3));
}

TEST_F(QBSpectrumTest, replacingASpectrumKeepsTheOrderOfTheStrings) {
  const platform::Ref<QBSpectrum> replaced = m_guitar->findSpectrumByString(2);
  replaced->defineAsCalibrated();
  overtone(replaced, 0, 1);
  QBSpectrum* fresh = m_guitar->createSpectrum(replaced->string());
  EXPECT_TRUE(replaced->isDeleted());
  EXPECT_FALSE(fresh->isCalibrated());
  EXPECT_TRUE(fresh->overtones().empty());
  int order = 0;
  for (const auto& spectrum : m_guitar->readAllSpectrums())
    EXPECT_EQ(spectrum->string()->order(), order++);
  EXPECT_EQ(order, 6);
  m_guitar->deleteSpectrumByString(5);
  EXPECT_EQ(m_guitar->spectrums().size(), 5U);
  EXPECT_THROW(m_guitar->findSpectrumByString(5), std::out_of_range);
  EXPECT_THROW(m_guitar->findSpectrumByString(-1), std::out_of_range);
}

TEST_F(QBSpectrumTest, spectraComeBackByStringNumberAfterAReload) {
  m_guitar->createSpectrum(m_guitar->findSpectrumByString(0)->string());  // now the last row
  overtone(m_guitar->findSpectrumByString(0), 7, 5);
  QBTabMgr::db().save();
  QBTabMgr::clearDb();
  QBInstrument* read = QBTabMgr::db().selectedInstrument();
  EXPECT_EQ(read->findSpectrumByString(0)->findOvertone(0, 7)->hits(), 5);
  EXPECT_EQ(read->findSpectrumByString(0)->string()->order(), 0);
}

}  // namespace
}  // namespace korvel
