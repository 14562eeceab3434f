// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBSong.h"

#include "model/songs/QBChordVisitor.h"
#include "support/Script.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/CombinedSongs.h"
#include "workflow/arranging/QBMiddleVoiceFilter.h"
#include "workflow/arranging/shelf/SongOperations.h"

namespace korvel {
namespace {

using test::Words;

template <class Objects>
std::string positions(const Objects& objects) {
  std::string text;
  for (const auto& object : objects) text += std::to_string(object->position()) + ' ';
  return text;
}

struct QBSongTest : testing::Test {
  QBSongTest() {
    m_guitar = QBTabMgr::db().createInstrument(m_store.standard(), "Guitar", true, true, 0.5F, 1);
    m_song = m_album->createSong("Song");
  }
  QBSong* songOf(const std::vector<int>& durations) {
    QBSong* song = m_album->createSong("Song");
    for (const int duration : durations) test::addChord(song, "x02210", duration);
    return song;
  }
  QBMeasure* measureOf(const std::vector<int>& durations, int beat, int beattype) {
    QBSong* song = songOf(durations);
    QBMeasure* measure = QBTabMgr::db().createMeasure(song, beat, beattype);
    for (QBChord* chord : song->chords()) measure->addChord(chord);
    return measure;
  }

  test::StandardStore m_store;
  QBAlbum* m_album = QBTabMgr::db().createAlbum("Album", false);
  QBInstrument* m_guitar;
  QBSong* m_song;
};

TEST_F(QBSongTest, chordsAreOrderedByPositionOnceAndForAll) {
  for (const int position : {3, 1, 2, 2}) m_song->createChord()->setPosition(position);
  const platform::Ref<QBChord> gone = m_song->allChords().at(0);
  EXPECT_EQ(positions(m_song->allChords()), "1 2 2 3 ");
  EXPECT_LT(m_song->allChords()[1]->objectId(), m_song->allChords()[2]->objectId());
  EXPECT_EQ(gone->timestamp(), 2) << "of chords that are made by hand";
  m_song->deleteChord(gone);
  EXPECT_EQ(m_song->createChord()->position(), 5);
  EXPECT_EQ(m_song->chords().size(), 4U);
  EXPECT_EQ(positions(m_song->allChords()), "1 2 2 3 ") << "as they were at the first call";
  EXPECT_EQ(gone->song(), nullptr);
  EXPECT_EQ(gone->hold(), nullptr);
}

TEST_F(QBSongTest, countersStartAgainAfterAReload) {
  m_song->createChord();
  QBTabMgr::db().createMeasure(m_song, 4, 4);
  QBTabMgr::db().save();
  QBTabMgr::clearDb();
  QBSong* read = QBTabMgr::db().findAlbumByIndex(0)->findSongByIndex(0);
  EXPECT_EQ(read->createChord()->position(), 1);
  EXPECT_EQ(QBTabMgr::db().createMeasure(read, 4, 4)->position(), 1);
  EXPECT_EQ(positions(read->allChords()), "1 1 ");
}

TEST_F(QBSongTest, visitorSeesEveryChordWithItsNeighbours) {
  class Notes final : public QBChordVisitor {
   public:
    void execute(QBChord* previous, QBChord* current, QBChord* next) override {
      for (const QBChord* chord : {previous, current, next})
        text += chord ? std::to_string(chord->position()) : "-";
      text += '@' + std::to_string(m_index()) + m_album()->name() + m_instrument()->name() + ' ';
      current->song()->deleteChord(current);
    }
    std::string text;
  } notes;
  songOf({1, 1, 1})->iterate(notes);
  EXPECT_EQ(notes.text, "-12@0AlbumGuitar 123@1AlbumGuitar 23-@2AlbumGuitar ");
  notes.text.clear();
  m_song->iterate(notes);
  EXPECT_EQ(notes.text, "");
}

TEST_F(QBSongTest, answersAsWritten) {
  const auto numbers = [](const Words& words) {
    std::vector<int> all;
    for (const std::string& word : words) all.push_back(std::stoi(word));
    return all;
  };
  const auto perform = [this](const Words& words, const auto& arrange) {
    QBSong* other = m_album->createSong("Longer");
    m_song = m_album->createSong("Song");
    bool behind = false;
    for (const std::string& frets : words)
      frets == "/" ? void(behind = true) : void(test::addChord(behind ? other : m_song, frets));
    const QBSong* made = arrange(*other);
    return made->title() + ": " + test::fretsOf(*made);
  };
  test::expectScript(
      "songs/parts.txt",
      {{"range",  // of five chords
        [&](const Words& words) {
          return positions(
              songOf({1, 1, 1, 1, 1})->chordsInRange(words.number(0), words.number(1)));
        }},
       {"loop",  // of twelve chords, one end after the other
        [&](const Words& words) {
          QBSong* song = songOf(std::vector<int>(12, 1));
          std::string text;
          for (const int position : numbers(words)) {
            song->setChordInLoop(song->allChords().at(static_cast<std::size_t>(position - 1)));
            for (const QBChord* end : {song->fromChord(), song->toChord()})
              text += end ? std::to_string(end->position()) + ' ' : "- ";
            text += "| ";
          }
          return text;
        }},
       {"groupsOfSong",  // from each chord on
        [&](const Words& words) {
          std::string text;
          for (std::size_t i = 0; i < words.size(); ++i)
            text +=
                std::to_string(songOf(numbers(words))->lookupGroupSize(static_cast<int>(i))) + ' ';
          return text;
        }},
       {"groupsOfMeasure",  // in eighths and in quarters, from the first chord on and the second
        [&](const Words& words) {
          QBMeasure* measure = measureOf(numbers(words), 6, 8);
          const int eighths = measure->lookupGroupSize(0);
          const int later = measure->lookupGroupSize(1);
          measure->setBeattype(4);
          return std::to_string(eighths) + ' ' + std::to_string(measure->lookupGroupSize(0)) +
                 " | " + std::to_string(later);
        }},
       {"fits",  // a further chord, into a measure
        [&](const Words& words) {
          const auto all = numbers(words);
          QBMeasure* measure = measureOf({all.begin() + 3, all.end()}, all[0], all[1]);
          return std::to_string(measure->durationValue()) +
                 (measure->fitsIn(all[2]) ? " yes" : " no");
        }},
       {"merge",
        [&](const Words& words) {
          return perform(words, [&](QBSong& other) { return mergeWithSong(*m_song, other); });
        }},
       {"mergeBack",
        [&](const Words& words) {
          return perform(words, [&](QBSong& other) { return mergeWithSong(other, *m_song); });
        }},
       {"middle", [&](const Words& words) {
          return perform(words, [&](QBSong&) {
            m_song->allChords()[0]->hold()->addTone(1, 2, 9e9);
            return QBMiddleVoiceFilter(m_song, 1).filter();
          });
        }}});
}

TEST_F(QBSongTest, measuresAndTheirChordsAreOrderedAnewOnEachCall) {
  QBMeasure* measure = measureOf({1, 1, 1}, 4, 4);
  measure->chords().at(0)->setPosition(9);
  EXPECT_EQ(positions(measure->allChords()), "2 3 9 ");
  measure->chords().at(2)->setMeasure(nullptr);
  EXPECT_EQ(positions(measure->allChords()), "2 9 ");
  for (int i = 0; i < 3; ++i) QBTabMgr::db().createMeasure(m_song, 4, 4);
  m_song->measures().at(0)->setPosition(7);
  EXPECT_EQ(positions(m_song->allMeasures()), "2 3 7 ");
}

TEST_F(QBSongTest, cloneCopiesChordsIntoTheSameAlbum) {
  QBSong* song = QBTabMgr::db().createSong("Song", m_store.dropD(), nullptr, m_album);
  test::addChord(song, "x02210", 3)->setPosition(2);
  test::addChord(song, "022000", 5)->setPosition(1);
  QBTabMgr::db().createMeasure(song, 4, 4);
  QBSong* copy = song->clone();
  EXPECT_EQ(copy->title(), "Song");
  EXPECT_EQ(copy->album(), m_album);
  EXPECT_EQ(copy->tuning(), m_store.dropD());
  EXPECT_EQ(copy->instrument(), "Guitar") << "the one selected now";
  EXPECT_EQ(positions(copy->allChords()), "1 2 ");
  EXPECT_EQ(copy->allChords()[0]->duration(), 5) << "in order, and renumbered";
  EXPECT_EQ(copy->allChords()[1]->hold()->toStringClean(), "01220-");
  EXPECT_TRUE(copy->measures().empty());
  EXPECT_EQ(song->chords().size(), 2U);
}

TEST_F(QBSongTest, handsAreSimplifiedOneAfterTheOther) {
  QBTabMgr::db().addPattern("---xxx", 9);
  QBTabMgr::db().addPattern("xxx---", 0);
  QBTabMgr::db().loadPatterns();
  test::addChord(m_song, "022100");
  const auto made = [this](QBSong* song) {
    EXPECT_EQ(song->tabulature(), toString(*song)) << "drawn under the final title";
    EXPECT_EQ(m_album->songs().size(), 2U) << "no song is left of the first step";
    const std::string text = song->title() + ' ' + test::fretsOf(*song);
    m_album->deleteSong(m_album->songs().at(1));
    return text;
  };
  EXPECT_EQ(made(toLeftRightHand(*m_song)), "Song(L+R) xxx100 ");
  EXPECT_EQ(made(toRightLeftHand(*m_song)), "Song(R+L) 022xxx ");
  m_song->chords().at(0)->hold()->findToneByString(3)->setAmp(1);
  EXPECT_EQ(made(removeSilent(*m_song, 0.5F)), "Song(-Slnt) 022x00 ");
}

TEST_F(QBSongTest, albumsFindCreateDeleteAndCloneSongs) {
  EXPECT_EQ(m_song->tuning(), m_store.standard()) << "that of the selected instrument";
  const QBSong* second = m_album->createSong("Song");
  EXPECT_EQ(m_album->findSongByName("Song"), m_song);
  EXPECT_EQ(m_album->findSongByName("song"), nullptr);
  test::addChord(m_song, "x02210");
  m_album->setLocked(true);
  const QBAlbum* copy = m_album->clone();
  EXPECT_EQ(copy->name(), "Album");
  EXPECT_TRUE(copy->isLocked());
  EXPECT_EQ(copy->songs().size(), 2U);
  EXPECT_EQ(copy->songs().at(0)->chords().size(), 1U);
  m_album->deleteSong(m_song);
  m_album->deleteSong(nullptr);
  EXPECT_EQ(m_album->findSongByName("Song"), second);
  QBTabMgr::db().deselectAllInstruments();
  EXPECT_EQ(m_album->createSong("New")->tuning(), nullptr);
}

}  // namespace
}  // namespace korvel
