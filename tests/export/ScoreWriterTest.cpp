// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/ScoreWriter.h"

#include "export/score/NoteValues.h"
#include "export/score/SongScore.h"
#include "export/score/Spelling.h"
#include "model/songs/SongLyrics.h"
#include "support/Approved.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

/// Sixteenths of a length, in units of a score where they are not whole: "3" and "8u".
std::string lengthOf(int units) {
  const bool whole = units % kUnitsOfSixteenth == 0;
  return whole ? std::to_string(units / kUnitsOfSixteenth) : std::to_string(units) + 'u';
}

/// Signs with their lengths, "r" for rests, "~" to the next one, "[" and "]" around triplets.
std::string signsOf(const std::vector<ScoreNote>& notes) {
  std::string text;
  for (const ScoreNote& note : notes) {
    const auto& tones = note.event->tones;
    if (&note != &notes.front()) text += ' ';
    if (note.opensTriplet) text += '[';
    text += (tones.empty() ? "r" : "") + lengthOf(note.value->units);
    if (!tones.empty() && (!note.last || tones.front().tiedOn)) text += '~';
    if (note.closesTriplet) text += ']';
  }
  return text;
}

/// "|" before each bar, " / " before its lower voice.
std::string signsOf(const Score& score) {
  std::string text;
  for (const WrittenBar& bar : writtenBars(score)) {
    text += '|' + signsOf(bar.notes);
    if (!bar.lower.empty()) text += " / " + signsOf(bar.lower);
  }
  return text;
}

Score scoreOfDurations(const Meter& meter, const std::vector<int>& durations,
                       int unit = kUnitsOfSixteenth) {
  Score score;
  score.bars.push_back({meter, {}});
  for (const int duration : durations)
    score.bars.back().events.push_back({duration * unit, {{0, 3, 43}}, std::nullopt});
  return score;
}

TEST(NoteValues, showTheBeatsAndTieWhatNoSingleSignCanSay) {
  const auto signs = [](const Meter& meter, const std::vector<int>& durations) {
    return signsOf(scoreOfDurations(meter, durations));
  };
  EXPECT_EQ(signs({4, 4}, {16, 8, 8}), "|16|8 8");
  EXPECT_EQ(signs({4, 4}, {1, 3, 3, 1, 1, 2, 1, 2, 4, 2}), "|1 3 3 1 1 2 1 2 2~|2 2 r12");
  EXPECT_EQ(signs({4, 4}, {2, 8, 6, 40}), "|2 6~ 2 6|16~|16~|8 r8");
  EXPECT_EQ(signs({3, 4}, {12, 5, 7, 14}), "|12|4~ 1 3~ 4|12~|2 r6 r4");
  EXPECT_EQ(signs({6, 8}, {8, 4, 12, 2, 4, 6}), "|6~ 2 4|12|2 4 6");
  EXPECT_EQ(signs({12, 8}, {24, 18, 4, 5}), "|24|12~ 6 4 2~|3 r3 r12 r6");
  EXPECT_EQ(signs({2, 2}, {1, 16}), "|1 3~ 12~|1 r3 r12");
  EXPECT_EQ(signsOf(Score()), "|r16") << "a part has a bar at least";
}

TEST(NoteValues, areTripletsWhereNothingElseIsExact) {
  const auto signs = [](const Meter& meter, const std::vector<int>& units) {
    return signsOf(scoreOfDurations(meter, units, 1));
  };
  EXPECT_EQ(signs({4, 4}, {8, 8, 8, 16, 32, 4, 4, 4, 6, 6}),
            "|[8u 8u 8u] [16u 32u] [4u 4u 4u] 1 1");
  EXPECT_EQ(signs({3, 4}, {16, 16, 16, 14, 10}), "|[16u 16u 16u] [2~ 2u 1~ 4u]");
  EXPECT_EQ(signs({6, 8}, {12, 15, 9, 9, 9, 9, 9}), "|2 2~ 3u 9u 9u 9u 9u 9u");
}

TEST(NoteValues, fillEveryBarExactlyWhateverTheDurations) {
  std::mt19937 random(3);
  for (const Meter& meter :
       {Meter{4, 4}, {3, 4}, {6, 8}, {12, 8}, {5, 4}, {7, 8}, {7, 16}, {2, 2}}) {
    std::vector<int> durations;
    int total = 0;
    for (int i = 0; i < 300; ++i) {
      durations.push_back(1 + static_cast<int>(random() % 30));
      total += durations.back();
    }
    for (const int unit : {1, 2, 3, kUnitsOfSixteenth}) {
      const Score score = scoreOfDurations(meter, durations, unit);
      int sounding = 0;
      for (const WrittenBar& bar : writtenBars(score)) {
        int length = 0;
        for (const ScoreNote& note : bar.notes) {
          length += note.value->units;
          if (!note.event->tones.empty()) sounding += note.value->units;
        }
        ASSERT_EQ(length, meter.units()) << meter.beats << '/' << meter.beatType;
      }
      EXPECT_EQ(sounding, total * unit);
    }
  }
}

TEST(Spelling, followsTheHarmony) {
  const auto text = [](int pitch, const ScoreHarmony& harmony) {
    const SpelledNote note = spelled(pitch, &harmony);
    const char* signs[] = {"b", "", "#"};
    return note.step + std::string(signs[note.alter + 1]) + std::to_string(note.octave);
  };
  EXPECT_EQ(text(61, {9, ""}) + text(68, {1, "m"}) + text(70, {5, "sus4"}), "C#4G#4Bb4");
  EXPECT_EQ(text(59, {8, "m"}) + text(60, {1, "maj7"}) + text(65, {1, ""}), "Cb4B#3E#4")
      << "the octave is that of the name";
  EXPECT_EQ(text(63, {0, "7#9"}) + text(63, {0, "m7"}), "D#4Eb4");
  EXPECT_EQ(text(68, {0, "aug"}) + text(57, {3, "dim7"}), "G#4A3") << "no double flats";
  const auto inKey = [](const ScoreKey& key) {
    std::string names;
    for (int pitch = 60; pitch < 72; ++pitch) {
      const SpelledNote note = spelled(pitch, nullptr, &key);
      names += note.step;
      if (note.alter) names += note.alter < 0 ? 'b' : '#';
    }
    return std::to_string(fifthsOf(key)) + names;
  };
  EXPECT_EQ(inKey({5, false}), "-1CDbDEbEFF#GAbABbB");
  EXPECT_EQ(inKey({4, false}), "4CC#DD#EFF#GG#AA#B");
  EXPECT_EQ(inKey({1, true}), "4B#C#DD#EE#F#GG#AA#B") << "what leads to the tonic is B#";
  EXPECT_EQ(inKey({10, true}), "-5CDbDEbEFGbGAbABbB");
  EXPECT_EQ(spelled(40), (SpelledNote{'E', 0, 2}));
  EXPECT_EQ(spelled(51), (SpelledNote{'E', -1, 3}));
}

struct SongScoreTest : testing::Test {
  static Score score(QBSong* song, const std::optional<Meter>& meter = std::nullopt) {
    return scoreOf(*song, meter);
  }
  QBHarmony* harmony(const std::string& type) { return QBTabMgr::db().createHarmony(type, 1); }

  test::StandardStore m_store;
  QBSong* m_song = m_store.song("Air \"No < 1\" & \x01\xC3\xA4\xFF");
};

TEST_F(SongScoreTest, restsForEmptyChordsButNotForThoseThatAChordGrewOver) {
  for (const int duration : {3, 1, 1, 1, 1})
    test::addChord(m_song, duration > 1 ? "3" : "", duration);
  test::addChord(m_song, "", 2);
  test::addChord(m_song, "x3", 1);
  EXPECT_EQ(signsOf(score(m_song)), "|3 r1 r3 1 r8");
}

TEST_F(SongScoreTest, followsTheMeasuresUnlessToldOtherwise) {
  QBTabMgr& db = QBTabMgr::db();
  for (const auto& [beats, type] :
       {std::pair(3, 4), std::pair(6, 8), std::pair(6, 8), std::pair(0, 3)})
    db.createMeasure(m_song, beats, type);
  const auto measures = m_song->allMeasures();
  measures[0]->addChord(test::addChord(m_song, "3", 16));
  test::addChord(m_song, "xxxxxx", 1);
  measures[2]->addChord(test::addChord(m_song, "x3", 6));
  EXPECT_EQ(signsOf(score(m_song)), "|12~|4 r8|r12|6 r6|r16");
  EXPECT_EQ(signsOf(score(m_song, Meter{12, 8})), "|12~ 4 2~ 4 r2");
}

TEST_F(SongScoreTest, wordsOfSlicesAreSungToTheirChords) {
  const auto sung = [](QBSong* song, std::vector<SungWords> words) {
    setLyrics(*song, std::move(words));
    std::string text;
    for (const ScoreWords& each : score(song).words)
      text += std::to_string(each.unit) + ':' + each.text + ' ';
    return text;
  };
  for (const char* frets : {"3", "", "x3", "xx2"}) test::addChord(m_song, frets, 2);
  EXPECT_EQ(sung(m_song, {{0, "one"}, {1, "two"}, {3, "three"}}), "0:one 12:two 36:three ");
  QBSong* inBars = m_store.song("Pick-up");
  for (const int duration : {4, 8, 8}) {
    QBMeasure* bar = inBars->allMeasures().size() < 2 ? QBTabMgr::db().createMeasure(inBars, 4, 4)
                                                      : inBars->allMeasures().back().get();
    bar->addChord(test::addChord(inBars, "3", duration));
  }
  EXPECT_EQ(sung(inBars, {{-12, "oh"}, {0, "one"}, {30, "two"}}), "0:oh 96:one 144:two ");
}

TEST_F(SongScoreTest, writesWhatOtherProgramsRead) {
  m_song->setTuning(m_store.dropD());
  m_song->setTempoRate(2.0F);
  QBChord* first = test::addChord(m_song, "0xx6x2", 6);
  first->setHarmony(harmony("7b9"));
  first->setBaseTone(1);
  first->hold()->addTone(5, 1, 1);  // of two on a string the higher one stays
  first->hold()->addTone(4, 12, 1)->setActive(false);
  QBChord* second = test::addChord(m_song, "xxxxxa", 11);
  second->setHarmony(first->harmony());
  second->setBaseTone(1);
  second->hold()->addTone(0, 12, 1);
  test::addChord(m_song, "0", 2);
  Score written = score(m_song);
  written.program = "Korvel";
  written.date = "2026-05-01";
  test::expectApproved(ScoreWriter(written).write(), "export/score.musicxml");
}

/// Pick-ups, triplets, a bass and a tone that are held under or over others, ties across bar lines,
/// and lengths as edits leave them.
TEST_F(SongScoreTest, writesTheExactLengthsOfASongOnBeats) {
  const struct {
    const char* bars;
    const char* signs;
  } cases[] = {
      {"4/4 rt6 xxx2xx t6 | 0xxxx0 t12_0t48 xxx2xx t4 xxx2xx t4 xxx2xx t4 xxx0xx t24",
       "|r2 2|4 [8u 8u 8u] 8 / 16"},
      {"4/4 x02210 t36 xxxx1x t12=t30 | rt18 0xxxx0 t18 rt12", "|12 4~|6 6 r4"},
      {"3/4 xxx2xx t4 | xxxxx3 t36 | 0xxxxx t12 x0xxxx t12 x2xxxx t5 x3xxxx t7",
       "|[r16u 8u]|12|4 4 [8u~ 2u 1~ 8u]"},
      {"3/4 xxxxx3 t12=t36 0xxxxx t12 x2xxxx t12", "|12 / r4 4 4"},
      {"6/8 xxx2xx t4 | 0xxxxx t4_0t24 xxx2xx t4 xxxx1x t4 rt12 | x02210 t3 x02210 t9 x02210 "
       "t12=t20 | rt24",
       "|2|r2 2 2 r6 / 12|9u 9u~ 3 6~|4 r2 r6"},
  };
  for (const auto& [bars, signs] : cases) {
    QBSong* song = m_store.song("Beats");
    test::beatSong(song, bars);
    EXPECT_EQ(signsOf(score(song)), signs) << bars;
  }
}

TEST_F(SongScoreTest, writesASongOnBeatsAsOtherProgramsReadIt) {
  test::beatSong(m_song,
                 "swing=0.66 key=5 3/4 xxx3xx t4 | x13331 t12_1t36 xxxx3x t6 xxxx1x t6 xxx3xx "
                 "t12=t18 | rt6 xxxxx3 t30");
  test::setBeatTimes(m_song, -4, [](int tick) { return 2 + 0.04 * std::max(tick, 2 * tick - 36); });
  for (const auto& chord : m_song->allChords()) {
    chord->setHarmony(harmony("7"));
    chord->setBaseTone(10);
  }
  Score written = score(m_song);
  written.program = "Korvel";
  written.date = "2026-05-01";
  test::expectApproved(ScoreWriter(written).write(), "export/beats.musicxml");
}

}  // namespace
}  // namespace korvel
