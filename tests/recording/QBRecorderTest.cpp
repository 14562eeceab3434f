// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/QBRecorder.h"

#include "analysis/chords/QBChordAnalyserGame.h"
#include "audio/QBMediaTrack.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "recording/QBChordRecorder.h"
#include "support/JumpingLoop.h"
#include "support/Testing.h"
#include "support/sound/Guitar.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

/// A source that knows what was asked of it.
struct CountingSource final : QBSampleSource {
  void startRecord(float volume) override {
    QBSampleSource::startRecord(volume);
    ++starts;
  }
  void stopRecord() override { ++stops; }

  int starts = 0;
  int stops = 0;
};

struct QBRecorderTest : testing::Test {
  QBRecorderTest() {
    QBTabMgr& db = QBTabMgr::db();
    m_guitar = db.createInstrument(m_store.standard(), "Guitar", true, true, 0.5F, 1);
    QBHarmony* major = db.createHarmony("maj", 1);
    for (const int step : {0, 4, 3}) major->addStep(step, step);
    db.setHarmonies({major});
  }
  std::shared_ptr<QBChordAnalyser> live() {
    return std::make_shared<QBChordAnalyserStandard>(m_source, m_store.standard());
  }
  std::shared_ptr<QBChordAnalyser> file(const std::vector<std::int16_t>& samples) {
    const std::string name = m_store.folder().file("a.wav");
    test::writeWav(name, samples);
    m_track = std::make_shared<QBMediaTrack>(name);
    return std::make_shared<QBChordAnalyserGame>(m_track, m_store.standard());
  }
  /// A second of a chord, in blocks of the live source.
  void pushBlocks(const std::string& shape) {
    const auto samples = test::play({{test::notesOf(shape), 1.5}});
    for (std::size_t i = 0; i + QBBlock::kSamples <= samples.size(); i += QBBlock::kSamples) {
      std::vector<std::byte> bytes(QBBlock::kBytes);
      std::memcpy(bytes.data(), samples.data() + i, bytes.size());
      m_source->pushBuffer({}, {.data = bytes, .dataByteSize = QBBlock::kBytes});
    }
  }

  test::StandardStore m_store;
  QBInstrument* m_guitar;
  QBAlbum* m_album = QBTabMgr::db().createAlbum("A", false);
  QBSong* m_target = m_album->createSong("T");
  std::shared_ptr<CountingSource> m_source = std::make_shared<CountingSource>();
  std::shared_ptr<QBMediaTrack> m_track;
};

TEST_F(QBRecorderTest, stepsOfAFileFillTheTargetSong) {
  QBChordRecorder recorder(file(test::play({{test::notesOf("320003"), 1.0}})), m_guitar, m_target,
                           m_album);
  recorder.startWithoutTimer("title", 0);
  const platform::Ref<QBSong> scratch = m_album->findSongByName("Test");
  ASSERT_TRUE(scratch);
  EXPECT_EQ(scratch->tuning(), m_store.standard());
  const QBChord* chord = recorder.nextChord();
  ASSERT_NE(chord, nullptr);
  EXPECT_EQ(chord->song(), m_target);
  EXPECT_TRUE(scratch->chords().empty()) << "the analysed chord is gone";
  EXPECT_NE(chord->harmony(), nullptr);
  EXPECT_EQ(chord->duration(), 1);
  for (const QBTone* tone : chord->hold()->tones()) EXPECT_GE(tone->group(), 1);
  while (!m_track->eof()) recorder.nextChord();
  recorder.stopWithoutTimer();
  EXPECT_TRUE(scratch->isDeleted());
  EXPECT_EQ(m_album->songs().size(), 1U);
  EXPECT_EQ(m_target->chords().size(), 3U);
  EXPECT_EQ(m_target->chords().at(2)->position(), 3);
  EXPECT_TRUE(QBTabMgr::db().context().fetch("QBBlock").empty());
}

TEST_F(QBRecorderTest, silentFileLeavesNothingBehind) {
  QBChordRecorder recorder(file(std::vector<std::int16_t>(50000)), m_guitar, m_target, m_album);
  recorder.startWithoutTimer("Test", 0);
  while (!m_track->eof()) EXPECT_EQ(recorder.nextChord(), nullptr);
  recorder.stopWithoutTimer();
  recorder.stopWithoutTimer();
  EXPECT_TRUE(m_target->chords().empty());
  EXPECT_EQ(m_album->songs().size(), 1U);
}

TEST_F(QBRecorderTest, onlyConfirmedTonesAreTaken) {
  m_guitar->findSpectrumByString(1)->addOvertone(3, 2, 9, 12, 0, 1e6)->setHits(5);  // the octave
  m_guitar->findSpectrumByString(2)->addOvertone(4, 3, 2, 12, 0, 1e6)->setHits(5);
  QBChord* raw = test::addChord(m_store.song("raw"), "x022xx");
  raw->hold()->addTone(2, 5, 7e6);
  raw->setTimestamp(77);
  QBOnlineTestRecorder recorder(live(), m_guitar, m_target, m_album);
  QBChord* filtered = recorder.filter(raw);
  EXPECT_EQ(filtered->hold()->toStringClean(), "--2-0-") << "the A by its octave, the D by none";
  EXPECT_EQ(filtered->timestamp(), 77);
  EXPECT_EQ(raw->hold()->tones().size(), 4U);
  m_guitar->findSpectrumByString(2)->deleteOvertone(
      m_guitar->findSpectrumByString(2)->findOvertone(4, 3));
  QBHold* hold = recorder.filter(raw)->hold();
  EXPECT_EQ(hold->toStringClean(), "--220-") << "two tones on a string: the lower fret";
  EXPECT_EQ(hold->findToneByString(2)->amp(), 1e6);
}

TEST_F(QBRecorderTest, chordWithoutConfirmedTonesStaysAsAnEmptyOne) {
  QBOnlineTestRecorder recorder(live(), nullptr, m_target, m_album);
  QBChord* raw = test::addChord(m_store.song("raw"), "x02210");
  raw->hold()->addTone(6, 0, 1e6);
  EXPECT_TRUE(recorder.filter(raw)->hold()->tones().empty()) << "no instrument confirms anything";
  EXPECT_EQ(m_target->chords().size(), 1U);
  QBOnlineTestRecorder trusting(live(), m_guitar, m_target, m_album);
  EXPECT_EQ(trusting.filter(raw)->hold()->tones().size(), 5U) << "no guitar has a seventh string";
}

TEST_F(QBRecorderTest, liveRecordingStepsOnItsTimerUntilItStops) {
  test::JumpingLoop loop;
  QBChordRecorder recorder(live(), m_guitar, m_target, m_album);
  recorder.stop();
  EXPECT_EQ(m_source->stops, 0) << "nothing runs";
  recorder.start("title", 0);
  recorder.start("title", 0);
  EXPECT_EQ(m_source->starts, 1);
  EXPECT_EQ(m_album->songs().size(), 2U) << "one scratch song";
  pushBlocks("320003");
  loop.run(std::chrono::milliseconds(120));
  EXPECT_EQ(m_target->chords().size(), 2U) << "a step every 50 ms";
  EXPECT_EQ(m_target->chords().at(0)->harmony(), nullptr) << "names belong to the stepped mode";
  recorder.stop();
  EXPECT_EQ(m_source->stops, 1);
  EXPECT_EQ(m_album->songs().size(), 1U);
  loop.run(std::chrono::milliseconds(200));
  EXPECT_EQ(m_target->chords().size(), 2U);
  recorder.start("title", 0);
  loop.run(std::chrono::milliseconds(120));
  EXPECT_EQ(m_target->chords().size(), 4U) << "the source was kept, with its pending blocks";
  recorder.stop();
}

TEST_F(QBRecorderTest, liveRecordingEndsWithTheRecorder) {
  test::JumpingLoop loop;
  {
    QBOnlineTestRecorder recorder(live(), m_guitar, m_target, m_album);
    recorder.start("title", 0);
  }
  pushBlocks("320003");
  loop.run(std::chrono::milliseconds(120));
  EXPECT_TRUE(m_target->chords().empty());
}

TEST_F(QBRecorderTest, steppedRecordingGivesItsSourceUp) {
  QBRecorder recorder(live(), m_album);
  EXPECT_EQ(recorder.nextStep(), nullptr) << "not before the start";
  recorder.startWithoutTimer("title", 0);
  pushBlocks("320003");
  ASSERT_NE(recorder.nextStep(), nullptr);
  EXPECT_EQ(m_album->findSongByName("Test")->chords().size(), 1U);
  recorder.stopWithoutTimer();
  EXPECT_EQ(m_source->stops, 1);
  recorder.startWithoutTimer("title", 0);
  EXPECT_EQ(m_source->starts, 1);
  recorder.stopWithoutTimer();
  EXPECT_EQ(m_source->stops, 1);
  EXPECT_EQ(m_album->songs().size(), 1U);
}

}  // namespace
}  // namespace korvel
