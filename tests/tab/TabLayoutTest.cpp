// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/layout/TabLayout.h"

#include <regex>
#include <sstream>

#include "support/Approved.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/store/StandardStore.h"
#include "tab/layout/ChordSearch.h"
#include "tab/layout/PlayPosition.h"
#include "tab/layout/TabPages.h"
#include "tab/text/SongDrawing.h"
#include "tab/text/TabText.h"

namespace korvel {
namespace {

/// As string:column-column.
std::string textOfLines(const std::vector<TabSigns::Line>& lines) {
  std::ostringstream text;
  for (const TabSigns::Line& line : lines)
    text << ' ' << line.string << ':' << line.from << '-' << line.to;
  return text.str();
}

constexpr const char* kFrets[] = {"x32010", "xxxxxx", "022000", "xx0a32", "x0221x"};

struct TabLayoutTest : testing::Test {
  /// Every second chord named, every fifth silent.
  void addChords(int count) {
    for (int i = 0; i < count; ++i) {
      QBChord* chord = test::addChord(m_song, kFrets[i % 5], 1 + i % 4);
      if (i % 2 == 1) continue;
      chord->setBaseTone(i % 12);
      chord->setHarmony(m_minor);
    }
  }

  void divideIntoMeasures(std::size_t chordsOfMeasure) {
    QBMeasure* measure = nullptr;
    for (std::size_t i = 0; i < m_song->allChords().size(); ++i) {
      if (i % chordsOfMeasure == 0) measure = QBTabMgr::db().createMeasure(m_song, 4, 4);
      measure->addChord(m_song->allChords()[i]);
    }
  }

  void expectFretsAtTheirPlaces(const TabLayout& layout) const {
    for (const TabLayout::Place& place : layout.places()) {
      const QBHold* hold = m_song->allChords()[static_cast<std::size_t>(place.chord)]->hold();
      for (int string = 0; string < 6; ++string) {
        const QBTone* tone = hold->findToneByString(string);
        const int row = rowOfString(place.y, string);
        const std::string text = layout.rows()[static_cast<std::size_t>(row)].substr(
            static_cast<std::size_t>(place.x), 2);
        EXPECT_EQ(text, !tone               ? "--"
                        : tone->fret() < 10 ? "-" + std::to_string(tone->fret())
                                            : std::to_string(tone->fret()))
            << "chord " << place.chord << " string " << string;
        EXPECT_EQ(layout.chordAt(place.x + 1, row), place.chord);
        EXPECT_EQ(stringAt(*layout.systemAt(row), row), string);
      }
    }
  }

  test::StandardStore m_store;
  QBSong* m_song = m_store.song("Waltz");
  QBHarmony* m_minor = QBTabMgr::db().createHarmony("m", 1);
};

TEST_F(TabLayoutTest, placesAreWhereTheTextShowsTheFrets) {
  addChords(90);
  buildTab(*m_song);
  const TabLayout byChords(*m_song);
  EXPECT_EQ(byChords.places().size(), 72U);
  EXPECT_GT(byChords.systems().size(), 3U);
  expectFretsAtTheirPlaces(byChords);

  divideIntoMeasures(30);
  buildTab(*m_song);
  const TabLayout byMeasures(*m_song);
  EXPECT_EQ(byMeasures.places().size(), 72U);
  expectFretsAtTheirPlaces(byMeasures);
}

TEST_F(TabLayoutTest, namesOfTheSongsStringsShareAColumn) {
  const std::pair<QBTuning*, std::vector<std::string>> tunings[] = {
      {m_store.dropD(), {" |E----", " |B----", " |G----", " |D----", " |A----", " |D----"}},
      {test::addTuning("Mixed", {39, 45, 50, 54, 59, 63}),
       {" |Eb----", " |B ----", " |F#----", " |D ----", " |A ----", " |Eb----"}}};
  addChords(60);
  for (const bool inMeasures : {false, true}) {
    if (inMeasures) divideIntoMeasures(20);
    for (const auto& [tuning, names] : tunings) {
      m_song->setTuning(tuning);
      buildTab(*m_song);
      const TabLayout layout = TabLayout::forExport(*m_song);
      expectFretsAtTheirPlaces(layout);
      EXPECT_GT(layout.systems().size(), 2U);
      for (const TabLayout::System& system : layout.systems())
        for (std::size_t i = 0; i < names.size(); ++i)
          EXPECT_TRUE(
              layout.rows().at(i + static_cast<std::size_t>(system.top)).starts_with(names[i]));
    }
  }
  m_song->setTabulature(std::regex_replace(m_song->tabulature(), std::regex("Eb"), "E"));
  expectFretsAtTheirPlaces(TabLayout(*m_song));
}

TEST_F(TabLayoutTest, followsTheChordsWhereTheStoredTextIsOlder) {
  m_song->setTabulature("    Recorded by Korvel\n");
  EXPECT_EQ(TabLayout(*m_song).rows().size(), 1U) << "without chords the text is all there is";
  addChords(5);
  expectFretsAtTheirPlaces(TabLayout(*m_song));
}

TEST_F(TabLayoutTest, silentChordsLieBetweenThoseThatAreDrawn) {
  addChords(7);
  const TabLayout layout(*m_song);
  const TabLayout::Place* before = layout.placeOf(0);
  EXPECT_EQ(layout.placeOf(1), nullptr);
  EXPECT_EQ(layout.nearPlace(1)->x, before->x + before->columns);
  EXPECT_EQ(layout.nextDrawn(0), 2);
  EXPECT_EQ(layout.previousDrawn(2), 0);
  EXPECT_EQ(layout.nextDrawn(5), std::nullopt) << "the last one is silent";
  EXPECT_EQ(layout.chordAt(before->x - 2, before->y), std::nullopt) << "the names of the strings";
  EXPECT_EQ(layout.chordAt(before->x, 0), std::nullopt) << "the heading";
  EXPECT_EQ(layout.nearPlace(7), std::nullopt);
}

TEST_F(TabLayoutTest, pagesBreakBetweenSystems) {
  addChords(200);
  m_song->setFromChord(m_song->allChords()[190]);
  m_song->setToChord(m_song->allChords()[198]);
  buildTab(*m_song);
  const TabLayout layout = TabLayout::forExport(*m_song);
  expectFretsAtTheirPlaces(layout);
  EXPECT_EQ(textOf(layout).find("XX"), std::string::npos);
  for (const int rows : {rowsOfLargestSystem(layout), 40, 64}) {
    const auto pages = pagesOf(layout, rows);
    std::size_t page = 0;
    for (const TabLayout::System& system : layout.systems()) {
      if (system.end > pages[page].end) ++page;
      ASSERT_LT(page, pages.size());
      EXPECT_GE(system.first, pages[page].first);
      EXPECT_LE(system.end, pages[page].end);
      EXPECT_LE(pages[page].end - pages[page].first, rows);
    }
    EXPECT_EQ(page + 1, pages.size());
  }
}

TEST_F(TabLayoutTest, songsOnBeatsStandInSystemsOfBars) {
  test::beatSong(m_song,
                 "tempo=96 key=5 swing=0.6 3/4 F:xxxxx1 e xxxxx3 e | 1xxxx5 q_0h. xxxx6x q "
                 "xxx5xx q | Bb:x1xxx1 q. xxxx3x e xxx3xx e xxxx3x e | C7:x3xxxx e3 xxx3xx e3 "
                 "xxxx5x e3 xxx3xx q xxxxxa q | ~h rq | rh. | "
                 "4/4 Ebmaj7:xx1343 h Dbmaj7:x4666x s s e e. s | F:1xx211 w");
  test::addChord(m_song, "xxxxx0", 4);  // without ticks, as an edit may leave it
  const TabLayout layout(*m_song, 60);
  EXPECT_EQ(layout.places().size(), m_song->allChords().size());
  expectFretsAtTheirPlaces(layout);
  std::string text = textOf(layout);
  for (const TabSigns::System& system : layout.signs().systems)
    text += "ties" + textOfLines(system.ties) + "; held" + textOfLines(system.rings) + '\n';
  text += textOf(TabLayout(toStringForExport(*m_song)));
  test::expectApproved(text, "tab/beats.txt");
  EXPECT_FALSE(TabLayout::forExport(*m_song).signs().isEmpty());
}

TEST_F(TabLayoutTest, chordsAreFoundByNameRoundTheSong) {
  addChords(30);  // Cm at 0, 12 and 24, Dm at 2 and 14; 26, another Dm, is silent
  const auto forward = SearchDirection::forward;
  EXPECT_EQ(findChord(*m_song, "Cm", 0, forward), 12);
  EXPECT_EQ(findChord(*m_song, "Cm", 24, forward), 0);
  EXPECT_EQ(findChord(*m_song, "Cm", 12, SearchDirection::backward), 0);
  EXPECT_EQ(findChord(*m_song, "Cm", 0, SearchDirection::backward), 24);
  EXPECT_EQ(findChord(*m_song, "d", 2, forward), 14) << "a beginning, in lower case";
  EXPECT_EQ(findChord(*m_song, "d", 14, forward), 2);
  EXPECT_EQ(findChord(*m_song, "Am7", 0, forward), std::nullopt);
  EXPECT_EQ(findChord(*m_song, "", 0, forward), std::nullopt);
}

TEST_F(TabLayoutTest, chordsAreNamedByTheirShapesBehindTheCapo) {
  test::beatSong(m_song, "key=9 A:577655 w | F#m:244222 w");
  m_song->setCapo(2);
  const TabLayout layout(*m_song, 80);
  const std::string text = textOf(layout);
  for (const char* written : {" Capo 2, frets from the nut\n", " G (A) ", " Em (F#m)"})
    EXPECT_NE(text.find(written), std::string::npos) << written << '\n' << text;
  expectFretsAtTheirPlaces(layout);
  EXPECT_EQ(findChord(*m_song, "Em", 0, SearchDirection::forward), 1);
  EXPECT_EQ(findChord(*m_song, "a", 1, SearchDirection::forward), 0);
  m_song->allChords().back()->hold()->applyTone(5, 1, 1e6);
  EXPECT_EQ(textOf(TabLayout(*m_song, 80)).find('('), std::string::npos) << "a tone below it";
}

TEST_F(TabLayoutTest, playPositionsCountFromTheStartOfTheLoop) {
  addChords(10);
  EXPECT_EQ(chordAtPlayPosition(*m_song, 0), std::nullopt);
  EXPECT_EQ(chordAtPlayPosition(*m_song, 0.1F), 0);
  EXPECT_EQ(chordAtPlayPosition(*m_song, 1), 9);
  m_song->setFromChord(m_song->allChords()[4]);
  m_song->setToChord(m_song->allChords()[8]);
  EXPECT_EQ(chordAtPlayPosition(*m_song, 0.25F), 4);
  EXPECT_EQ(chordAtPlayPosition(*m_song, 1), 7);
  EXPECT_EQ(chordAtPlayPosition(*m_song, 1.25F), 8);
}

}  // namespace
}  // namespace korvel
