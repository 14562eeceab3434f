// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/chords/QBChordAnalyserGame.h"
#include "analysis/spectrum/QBFFT.h"
#include "audio/QBMediaTrack.h"
#include "support/Testing.h"
#include "support/sound/Guitar.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

/// A steady sound; 200 is heard in one bin alone.
struct Sine {
  double hertz;
  double level = 200;
};

std::vector<std::int16_t> block(const std::vector<Sine>& sines,
                                std::size_t samples = QBBlock::kSamples) {
  std::vector<std::int16_t> values(samples);
  for (std::size_t i = 0; i < samples; ++i) {
    double sum = 0;
    for (const Sine& sine : sines)
      sum += sine.level *
             std::sin(2 * std::numbers::pi * sine.hertz * static_cast<double>(i) / 44100.0);
    values[i] = static_cast<std::int16_t>(std::lround(sum));
  }
  return values;
}

/// The tones of a chord in the order of the hold, as "string,fret ".
std::string tonesOf(const QBChord* chord) {
  std::string text;
  for (const QBTone* tone : chord->hold()->tones())
    text += std::to_string(tone->string()) + ',' + std::to_string(tone->fret()) + ' ';
  return text;
}

struct QBChordAnalyserTest : testing::Test {
  void push(std::vector<std::int16_t> samples, double time = 0) {
    samples.resize(QBBlock::kSamples);
    std::vector<std::byte> bytes(QBBlock::kBytes);
    std::memcpy(bytes.data(), samples.data(), bytes.size());
    m_live->pushBuffer({.sampleTime = time}, {.data = bytes, .dataByteSize = QBBlock::kBytes});
  }
  /// The chord of one block that sounds like that.
  QBChord* chordOf(const std::vector<Sine>& sines) {
    push(block(sines));
    return m_analyser.nextChord(m_song);
  }

  test::StandardStore m_store;
  QBSong* m_song = m_store.song("song");
  std::shared_ptr<QBSampleSource> m_live = std::make_shared<QBSampleSource>();
  QBChordAnalyserStandard m_analyser{m_live, m_store.standard()};
};

TEST_F(QBChordAnalyserTest, everyLiveBlockWithATonesBecomesAChordOfTheSong) {
  push({});
  push(block({{110.0}}), 123456.7);
  EXPECT_EQ(m_analyser.nextChord(m_song), nullptr) << "silence is taken and makes no chord";
  QBChord* chord = m_analyser.nextChord(m_song);
  ASSERT_NE(chord, nullptr);
  EXPECT_EQ(tonesOf(chord), "1,0 ");
  EXPECT_EQ(chord->song(), m_song);
  EXPECT_EQ(chord->position(), 1);
  EXPECT_EQ(chord->timestamp(), 123456);
  EXPECT_EQ(chord->m_fft(), nullptr);
  EXPECT_EQ(chord->block(), nullptr);
  EXPECT_EQ(m_analyser.nextChord(m_song), nullptr) << "nothing is pending";
}

TEST_F(QBChordAnalyserTest, toneWithoutAPlaceIsEnteredOnTheLowestOpenString) {
  EXPECT_EQ(tonesOf(chordOf({{73.41}})), "0,0 ");
  EXPECT_EQ(tonesOf(chordOf({{659.3}})), "0,0 ");
  const QBChord* both = chordOf({{82.41, 200}, {659.3, 400}});
  EXPECT_EQ(tonesOf(both), "0,0 ") << "one tone with a real one there";
  EXPECT_GT(both->hold()->tones().at(0)->amp(), 2e6) << "the louder, which came first";
  push(block({{73.41, 400}, {82.41}}));
  QBChordAnalyserStandard other(m_live, m_store.dropD());
  EXPECT_EQ(tonesOf(other.nextChord(m_song)), "0,0 0,2 ") << "its place in another tuning";
}

TEST_F(QBChordAnalyserTest, fileBlocksAreReadToTheEndAndLeaveTheStore) {
  const std::string file = m_store.folder().file("a.wav");
  auto samples = block({{110.0}});
  samples.resize(2 * QBBlock::kSamples);  // silence
  const auto rest = block({{196.0, 400}}, QBBlock::kSamples / 2);
  samples.insert(samples.end(), rest.begin(), rest.end());
  test::writeWav(file, samples);
  const auto track = std::make_shared<QBMediaTrack>(file);
  QBChordAnalyserGame analyser(track, m_store.standard());
  track->startRecord(0);
  const QBChord* first = analyser.nextChord(m_song);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(tonesOf(first), "1,0 ");
  EXPECT_EQ(first->timestamp(), 0);
  EXPECT_EQ(first->block(), nullptr);
  EXPECT_EQ(analyser.nextChord(m_song), nullptr);
  const QBChord* last = analyser.nextChord(m_song);
  ASSERT_NE(last, nullptr) << "a short block is heard with silence behind it";
  EXPECT_EQ(last->position(), 2);
  EXPECT_TRUE(track->eof());
  EXPECT_EQ(analyser.nextChord(m_song), nullptr);
  EXPECT_TRUE(QBTabMgr::db().context().fetch("QBBlock").empty());
}

TEST_F(QBChordAnalyserTest, withoutASourceNothingIsHeard) {
  QBChordAnalyserStandard live(nullptr, nullptr);
  EXPECT_EQ(live.nextChord(m_song), nullptr);
  QBChordAnalyserGame game(nullptr, nullptr);
  EXPECT_EQ(game.nextChord(m_song), nullptr);
  push(block({{110.0}}));
  EXPECT_EQ(QBChordAnalyser(m_live, nullptr).nextChord(m_song), nullptr) << "the base makes none";
}

}  // namespace
}  // namespace korvel
