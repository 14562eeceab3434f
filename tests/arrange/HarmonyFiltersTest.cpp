// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/HarmonyOfChord.h"
#include "arrange/harmony/QBChordTransposer.h"
#include "arrange/harmony/QBContraPoint.h"
#include "arrange/harmony/QBNonChordToneRemover.h"
#include "arrange/harmony/QBOptionRemover.h"
#include "arrange/shelf/QBChordFilter.h"
#include "support/StandardStore.h"
#include "support/Testing.h"

namespace korvel {
namespace {

struct HarmonyFiltersTest : testing::Test {
  HarmonyFiltersTest() {
    declare("m", 3, {0, 3, 4});
    declare("7", 5, {0, 4, 3, 3});
    declare("9", 9, {0, 4, 3, 3, 4});
    m_db.loadHarmonies();
  }

  void declare(const char* type, int order, std::initializer_list<int> steps) {
    QBHarmony* harmony = m_db.createHarmony(type, order);
    for (int place = 0; const int step : steps) harmony->addStep(place++, step);
  }

  /// Adds the chords, filters them and draws the fingering of each, the highest string first.
  std::string filtered(QBChordVisitor&& filter, std::initializer_list<const char*> frets) {
    QBSong* song = m_store.song("song");
    for (const char* chord : frets) readHarmony(*test::addChord(song, chord));
    song->iterate(filter);
    std::string text;
    for (const auto& chord : song->allChords())
      text += (chord->harmony() ? chord->fullHarmonyName() : "?") + ' ' +
              chord->hold()->toStringClean() + '\n';
    return text;
  }

  test::StandardStore m_store;
  QBTabMgr& m_db = QBTabMgr::db();
  QBInstrument* m_guitar = m_db.createInstrument(m_store.standard(), "guitar", true, true, 0.5F, 1);
};

TEST_F(HarmonyFiltersTest, optionsAreCountedFromTheRootAndTheRestIsNamedAnew) {
  const auto chords = {"x5455x", "x7677x", "x02210", "xxxxxx"};
  EXPECT_EQ(filtered(QBOptionRemover({4}), chords), "D7 --545-\nE7 --767-\nAm 01220-\n? ------\n");
  EXPECT_EQ(filtered(QBOptionRemover({4, 3}), chords),
            "Bm ---45-\nC#m ---67-\nAm 01220-\n? ------\n");
  EXPECT_EQ(filtered(QBOptionRemover({7, 0, 2}), {"x02210"}), "Am -1----\n")
      << "every tone of the pitch class, and no option beyond the harmony";
}

TEST_F(HarmonyFiltersTest, foreignTonesGo) {
  EXPECT_EQ(filtered(QBNonChordToneRemover(), {"102210", "x02213", "x0xxxx", "xxxxxx"}),
            "Am 01220-\nAm -1220-\n? ----0-\n? ------\n");
}

// Absolute notes of the open strings: 4, 9, 14, 19, 23, 28.
TEST_F(HarmonyFiltersTest, bassMovesAgainstAFallingMelody) {
  const auto after = [this](const char* previous, const char* current) {
    const std::string text = filtered(QBContraPoint(), {previous, current});
    return text.substr(text.size() - 7, 6);
  };
  EXPECT_EQ(after("x0xx1x", "x0xx3x"), "-3----") << "the melody rises over one bass";
  EXPECT_EQ(after("x02xx0", "x02xx0"), "0--2--") << "the melody stays";
  EXPECT_EQ(after("x0xx1x", "02xx3x"), "-3--20") << "the bass falls under a rising melody";
  EXPECT_EQ(after("x3xxx3", "302xx0"), "0--2--") << "the melody falls: until the bass is higher";
  EXPECT_EQ(after("x3xxx3", "x3xxx0"), "0-----") << "a bass that stays does not rise";
  EXPECT_EQ(after("xx5xx5", "300xxx"), "------");
  EXPECT_EQ(after("xxxxxx", "x0xxxx"), "----0-");
  EXPECT_EQ(after("x0xxxx", "xxxxxx"), "------");
  EXPECT_EQ(filtered(QBContraPoint(), {"x0xx1x", "x0xx3x", "x0xx5x"}),
            "Am -1--0-\nDm -3----\nAm -5--0-\n")
      << "compared with the chord before as it has become";
}

TEST_F(HarmonyFiltersTest, tonesAreTransposedToTheHighestStringThatFits) {
  const auto transposed = [this](const char* frets, int offset) {
    QBChord* source = test::addChord(m_store.song("song"), frets);
    QBChordTransposer transposer(source, m_guitar, 0, offset);
    std::string placed;
    for (const QBTone* tone : transposer.transpose()->hold()->tones())
      placed += std::to_string(tone->string()) + ',' + tone->toStringClean() + ' ';
    return placed;
  };
  EXPECT_EQ(transposed("x02210", 2), "1,2 2,4 4,0 4,3 5,2 ");
  EXPECT_EQ(transposed("x02210", -9), "0,3 1,3 2,1 3,0 ") << "the lowest note, 0, fits no string";
  EXPECT_EQ(transposed("0xxxxx", -5), "1,2 ") << "-1 goes up an octave";
  EXPECT_EQ(transposed("xxxxxb", 0), "5,11 ");
  EXPECT_EQ(transposed("xxxxxb", 1), "") << "the twelfth fret is not tried";
}

TEST_F(HarmonyFiltersTest, transposedChordKeepsItsTimeAndMovesItsRootAndNothingIsLeftOver) {
  QBChord* source = test::addChord(m_store.song("song"), "0x2xx1", 6);
  source->setBaseTone(2);
  source->hold()->findToneByString(5)->setActive(false);
  source->hold()->findToneByString(0)->setAmp(1.0);
  source->hold()->findToneByString(0)->setDuration(3);
  {
    QBChordTransposer transposer(source, m_guitar, 0, -6);
    const QBChord* down = transposer.transpose();
    EXPECT_EQ(down->song()->album(), m_db.findAlbumByName("Transpose Album"));
    EXPECT_EQ(down->baseTone(), 8);
    EXPECT_EQ(down->duration(), 6);
    ASSERT_EQ(down->hold()->tones().size(), 1U) << "one for two that meet, none for silent ones";
    EXPECT_EQ(down->hold()->tones().at(0)->amp(), 1.0) << "the first";
    EXPECT_EQ(down->hold()->tones().at(0)->duration(), 3);
  }
  EXPECT_EQ(QBChordTransposer(source, m_guitar, 0, 3).transpose()->baseTone(), 5);
  EXPECT_TRUE(m_db.albums().empty());
  EXPECT_EQ(m_db.context().fetch("QBSong").size(), 1U);
  EXPECT_EQ(m_db.context().fetch("QBTone").size(), 3U);
}

TEST_F(HarmonyFiltersTest, runsOfIdenticalChordsBecomeOne) {
  const auto reduced = [this](std::initializer_list<const char*> frets) {
    QBSong* source = m_store.song("source");
    for (int duration = 1; const char* chord : frets) test::addChord(source, chord, duration++);
    QBChordFilter filter(source);
    filter.setM_song(m_store.song("result"));
    std::string text;
    for (const auto& chord : filter.filter()->allChords())
      text += chord->hold()->toStringClean() + ' ' + std::to_string(chord->duration()) + '\n';
    return text;
  };
  EXPECT_EQ(reduced({"x02210", "x02210", "x0221x", "xxxxxx", "xxxxxx", "x02210", "x02210"}),
            "01220- 1\n-1220- 3\n------ 4\n01220- 6\n");
  EXPECT_EQ(reduced({"x02210", "x02210", "x02210"}), "01220- 1\n");
  EXPECT_EQ(reduced({}), "");
}

}  // namespace
}  // namespace korvel
