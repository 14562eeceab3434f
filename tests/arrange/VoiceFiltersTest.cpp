// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/chords/QBApplyMetric.h"
#include "arrange/chords/QBToneGroupBuilder.h"
#include "arrange/hands/QBPlectrumExtractor.h"
#include "arrange/shelf/QBFromGroupRemover.h"
#include "arrange/shelf/QBGroupRemover.h"
#include "arrange/shelf/QBRemoveSilent.h"
#include "arrange/shelf/QBUnderAmpRemover.h"
#include "arrange/shelf/QBUnderGroupRemover.h"
#include "arrange/voices/QBApplyLoudest.h"
#include "arrange/voices/QBExtractBrass.h"
#include "arrange/voices/QBExtractMelody.h"
#include "support/StandardStore.h"
#include "support/Testing.h"
#include "tab/filters/QBExtractVoicings.h"

namespace korvel {
namespace {

/// What a filter makes of one chord. Amplitudes are in millions, the lowest string's first.
struct Case {
  const char* name;
  std::function<void(QBSong&)> filter;
  std::string before, after;
  std::vector<double> amps = {};
};

template <class Visitor, class... Arguments>
std::function<void(QBSong&)> by(Arguments... arguments) {
  return [=](QBSong& song) {
    Visitor visitor(arguments...);
    song.iterate(visitor);
  };
}

/// Layers the tones by loudness first.
template <class Visitor>
std::function<void(QBSong&)> layered(int group) {
  return [=](QBSong& song) {
    for (const auto& chord : song.allChords()) QBToneGroupBuilder(chord).build();
    by<Visitor>(group)(song);
  };
}

// Absolute notes of the open strings: 4, 9, 14, 19, 23, 28.
const std::vector<Case> kCases = {
    {"melody of equal notes", by<QBExtractMelody>(), "c02xxx", "cxxxxx"},
    {"bass of equal notes", by<QBExtractBrass>(), "50xx10", "5xxxxx"},
    {"two loudest of equals", by<QBApplyLoudest>(2), "x02210", "x0xx1x", {3, 3, 2, 4, 3}},
    {"no loudest", by<QBApplyLoudest>(0), "x02210", "xxxxxx"},
    {"above half", by<QBRemoveSilent>(0.5F), "x02210", "xx2x1x", {2, 2.1, 1, 4, 0}},
    {"above all", by<QBRemoveSilent>(1.0F), "x02210", "xxxxxx", {2, 2.1, 1, 4, 0}},
    {"from two whole millions", by<QBUnderAmpRemover>(2), "x022xx", "x--2xx", {0, 1.999999, 2}},
    // Layers 1, 1, 2, 2: a tone that jumps up still belongs to the layer below.
    {"layer 1", layered<QBGroupRemover>(1), "x0221x", "x--21x", {0.1, 0.4, 0.45, 0.8}},
    {"layer 2 and louder", layered<QBFromGroupRemover>(2), "x0221x", "x02--x", {0.1, 0.4, 0.45, 9}},
    {"layer 1 and quieter", layered<QBUnderGroupRemover>(1), "x0221x", "x--21x", {0, 0.3, 0.4, 2}},
    {"lead alone", by<QBPlectrumExtractor>(0), "x02xx0", "xxxxx0"},
    {"lead below its companion", by<QBPlectrumExtractor>(0), "c5xxxx", "cxxxxx"},
    {"lead of one tone", by<QBPlectrumExtractor>(0), "xxxxx0", "xxxxx0"},
    {"second line and its neighbour", by<QBPlectrumExtractor>(1), "xx221x", "xx22xx"},
    {"third line with nothing below", by<QBPlectrumExtractor>(2), "xx221x", "xx221x"},
};

struct VoiceFiltersTest : testing::Test {
  QBSong* songOf(const Case& test) {
    QBSong* song = m_store.song(test.name);
    const QBChord* chord = test::addChord(song, test.before);
    for (std::size_t i = 0; i < test.amps.size(); ++i)
      chord->hold()->tones().at(i)->setAmp(test.amps[i] * 1e6);
    return song;
  }

  test::StandardStore m_store;
  QBTabMgr& m_db = QBTabMgr::db();
};

TEST_F(VoiceFiltersTest, keepTheTonesThatTheyAreFor) {
  for (const Case& test : kCases) {
    QBSong* song = songOf(test);
    test::addChord(song, "xxxxxx");
    test.filter(*song);
    EXPECT_EQ(test::fretsOf(*song), test.after + " xxxxxx ") << test.name;
  }
}

TEST_F(VoiceFiltersTest, chordsFillMeasuresOneAfterTheOther) {
  const auto measured = [](QBSong* song, int beat, int beattype) {
    by<QBApplyMetric>(beat, beattype, song)(*song);
    std::string text;
    for (const auto& measure : song->allMeasures()) {
      for (const auto& chord : measure->allChords())
        text += std::to_string(chord->duration()) + ' ';
      text += "| ";
    }
    return text;
  };
  QBSong* song = m_store.song("song");
  for (const int duration : {4, 8, 1, 16, 20, 6, 0, 5, 1, 1}) test::addChord(song, "x0", duration);
  test::addChord(song, "xx", 3);
  test::addChord(song, "x0", 3)->hold()->tones().at(0)->setActive(false);
  test::addChord(song, "x0", 2);
  EXPECT_EQ(measured(song, 6, 8), "4 8 | 1 | 16 | 20 | 6 0 5 1 | 1 2 | ")
      << "no measure for what is not heard";
  QBSong* longFirst = m_store.song("a first chord that is longer than a measure");
  for (const int duration : {20, 4, 4}) test::addChord(longFirst, "x0", duration);
  EXPECT_EQ(measured(longFirst, 4, 4), "| 20 | 4 4 | ");
}

TEST_F(VoiceFiltersTest, voicingsAreCollectedOnce) {
  QBAlbum* album = m_db.createAlbum("Album", false);
  m_db.createInstrument(m_store.standard(), "Guitar", true, true, 0.5F, 1);
  QBSong* source = album->createSong("Song");
  album->createSong("Song(voic)");
  for (const char* frets : {"x02210", "xb2210", "x02210", "x0xx1x", "x0xx1x", "x12210", "xb2210"})
    test::addChord(source, frets);
  QBExtractVoicings visitor(source, 2);
  source->iterate(visitor);
  visitor.cleanUp();
  EXPECT_EQ(visitor.voicings()->title(), "Song(voic)") << "though there is one";
  EXPECT_EQ(album->songs().size(), 3U);
  EXPECT_EQ(test::fretsOf(*visitor.voicings()), "x02210 xb2210 ");
  EXPECT_EQ(source->chords().size(), 7U);
}

}  // namespace
}  // namespace korvel
