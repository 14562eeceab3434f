// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/QBMIDIPlayer.h"

#include "music/ChordStep.h"
#include "platform/midi/FluidSynthesizer.h"
#include "playback/MidiNote.h"
#include "playback/SongRenderer.h"
#include "support/Script.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/sound/HandAudio.h"
#include "support/sound/SoundFont.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

using platform::MidiChannelMessage;
using platform::MidiNoteMessage;

constexpr double kTolerance = 1e-6;
constexpr std::size_t kFramesOfStep = 16384;

std::unique_ptr<platform::Synthesizer> synthesizer() {
  return std::make_unique<platform::FluidSynthesizer>(test::kSoundFont,
                                                      std::vector{QBMIDIPlayer::kProgram});
}

struct QBMIDIPlayerTest : testing::Test {
  std::unique_ptr<QBMIDIPlayer> player(const std::string& device = {}) {
    return std::make_unique<QBMIDIPlayer>(
        *m_song, std::make_unique<platform::MusicPlayer>(m_audio, device, synthesizer()));
  }
  void addChords(int count) {
    for (int i = 0; i < count; ++i)
      for (QBTone* tone : test::addChord(m_song, "0xxxx3")->hold()->tones())
        tone->setDuration(i % 2 * 4);
  }
  /// Plays until the place that was rendered when this was called, and a step more.
  void listen(double steps) {
    m_audio.play(static_cast<std::size_t>(std::lround(steps * kFramesOfStep)));
  }

  const test::StandardStore m_store;
  QBSong* m_song = m_store.song("Song");
  test::HandAudio m_audio;
};

TEST_F(QBMIDIPlayerTest, chordsBecomeNotesAStepApart) {
  addChords(3);
  (*m_song->chords().at(2)->hold()->tones().begin())->setActive(false);
  const auto midi = player();
  midi->scanFull();
  const platform::MusicEvents events = midi->sequence().events();
  ASSERT_EQ(events.size(), 5U);
  const auto expectNote = [&](std::size_t i, double time, int number, double length) {
    const auto& note = std::get<MidiNoteMessage>(events[i].message);
    EXPECT_NEAR(events[i].time, time, kTolerance);
    EXPECT_EQ(note.note, number);
    EXPECT_NEAR(note.duration, length, kTolerance);
    EXPECT_EQ(note.velocity, 50);
    EXPECT_EQ(note.releaseVelocity, 20);
    EXPECT_EQ(note.channel, 0);
  };
  expectNote(0, kSecondsOfChord, 40, 0.705887);
  expectNote(1, kSecondsOfChord, 67, 0.705887);
  expectNote(2, 2 * kSecondsOfChord, 40, 1.411773);
  expectNote(4, 3 * kSecondsOfChord, 67, 0.705887);
}

TEST_F(QBMIDIPlayerTest, aRangeStartsAtOneStep) {
  addChords(9);
  const auto midi = player();
  midi->scan(5, 8);
  EXPECT_TRUE(midi->repeatAsLoop());
  const auto events = midi->sequence().events();
  ASSERT_EQ(events.size(), 8U);
  EXPECT_NEAR(events.front().time, kSecondsOfChord, kTolerance);
  EXPECT_NEAR(events.back().time, 4 * kSecondsOfChord, kTolerance);
  EXPECT_FALSE(midi->playNote(0, 128, 1));
  EXPECT_FALSE(midi->playNote(0, -1, 1));
}

/// The notes that are left of five chords beside the part, each chord's followed by a bar.
std::string heardBeside(const OwnPart& part, QBSong& song) {
  QBMIDIPlayer midi(song, nullptr);
  midi.setPart(part);
  midi.setPartHeard(false);
  midi.scanFull();
  std::array<std::string, 5> chords;
  for (const auto& event : midi.sequence().events())
    chords.at(static_cast<std::size_t>(std::lround(event.time / kSecondsOfChord)) - 1) +=
        std::to_string(std::get<MidiNoteMessage>(event.message).note) + ' ';
  std::string text;
  for (const std::string& chord : chords) text += chord + '|';
  return text;
}

TEST_F(QBMIDIPlayerTest, ownPartIsSilentByStringsAndByVoice) {
  for (const char* frets : {"0xxxx0", "1x7xxx", "3xxxxx", "xxxxx0", "0x7x10"})
    test::addChord(m_song, frets);
  const struct {
    OwnPart part;
    const char* heard;
  } cases[]{
      {{0, OwnVoice::none}, "40 64 |41 57 |43 |64 |40 57 60 64 |"},
      {{1U << 1 | 1U << 6, OwnVoice::none}, "|57 |||57 60 |"},
      {{0, OwnVoice::melody}, "40 |41 |43 ||40 57 60 |"},
      {{0, OwnVoice::third}, "40 64 |41 57 |43 |64 |40 60 64 |"},
      {{0, OwnVoice::bass}, "64 |57 ||64 |57 60 64 |"},
      {{1U << 2, OwnVoice::allButMelody}, "64 |57 ||64 |64 |"},
  };
  for (const auto& [part, heard] : cases) EXPECT_EQ(heardBeside(part, *m_song), heard);
}

/// The last digits of the clicks' pitches from the third chord on, "." for a chord that has none
/// and "?" for a click beside the chords.
std::string clicksOf(QBSong& song) {
  QBMIDIPlayer midi(song, nullptr);
  midi.scan(3, 99);
  midi.addMetronome(3, 99);
  std::string text;
  double last = 0;
  for (const auto& event : midi.sequence().events()) {
    const auto& note = std::get<MidiNoteMessage>(event.message);
    if (event.time != last) text += note.channel == 0 ? '.' : '?';
    if (event.time == last && note.channel == 9) text.back() = "0123456789"[note.note % 10];
    last = event.time;
  }
  return text;
}

TEST_F(QBMIDIPlayerTest, theMetronomeClicksOnQuartersOrOnTheBeatsOfMeasures) {
  addChords(12);
  EXPECT_EQ(clicksOf(*m_song), "7...7...7.");
  const auto chords = m_song->allChords();
  int i = 0;
  for (int bar = 0; bar < 2; ++bar) {
    QBMeasure* measure = QBTabMgr::db().createMeasure(m_song, 3, 8);
    for (int duration : {1, 1, 3, 1}) {
      chords.at(static_cast<std::size_t>(i))->setDuration(duration);
      measure->addChord(chords.at(static_cast<std::size_t>(i++)).get());
    }
  }
  EXPECT_EQ(clicksOf(*m_song), "7.6.7.....")
      << "no beat begins with the chords behind a long one, nor outside of measures";
}

TEST_F(QBMIDIPlayerTest, countInIsABarOrFourClicksAndAsLoudAsTheMetronome) {
  addChords(12);
  const auto countIn = [this] {
    QBMIDIPlayer midi(*m_song, nullptr);
    midi.scan(0, 99);
    midi.addMetronome(0, 99);
    midi.addCountIn(0);
    midi.setClickVolume(0.5);
    std::string text;
    for (const auto& event : midi.sequence().events()) {
      const auto& note = std::get<MidiNoteMessage>(event.message);
      if (note.channel == 9 && event.time < 1)
        text += std::to_string(std::lround(event.time / kSecondsOfChord)) + ':' +
                std::to_string(note.velocity) + ' ';
    }
    return text;
  };
  EXPECT_EQ(countIn(), "-15:45 -11:30 -7:30 -3:30 1:30 ") << "the first chord is at 1";
  QBMeasure* measure = QBTabMgr::db().createMeasure(m_song, 3, 8);
  measure->addChord(m_song->allChords().front().get());
  EXPECT_EQ(countIn(), "-5:45 -3:30 -1:30 1:45 ");
}

/// Milliseconds count.
double rounded(double seconds) { return std::round(seconds * 1000) / 1000 + 0.0; }

/// Times from the first chord on.
std::string textOf(const std::vector<TimedBeat>& beats) {
  std::ostringstream text;
  for (const TimedBeat& beat : beats)
    text << rounded(beat.time - kSecondsOfChord) << (beat.first ? "! " : " ");
  return text.str();
}

TEST_F(QBMIDIPlayerTest, songsOnBeatsArePlayedAsWritten) {
  auto tempo = SongTime::Tempo::strict;
  std::unique_ptr<QBMIDIPlayer> midi;
  test::expectScript(
      "playing/beats.txt",
      {{"song",
        [&](const test::Words& words) {
          m_song = test::beatSong(m_store.song("Song"), words.textFrom(0));
          return "";
        }},
       {"beatTimes",
        [&](const test::Words& words) {
          for (std::size_t i = 0; i < words.size(); ++i)
            if (words[i] != "-")
              m_song->allChords()[i]->setBeatTime(std::lround(words.real(i) * 44100));
          return "";
        }},
       {"notes",
        [&](const test::Words& words) {
          tempo = words[0] == "strict" ? SongTime::Tempo::strict : SongTime::Tempo::asRecorded;
          midi = std::make_unique<QBMIDIPlayer>(*m_song, nullptr, tempo);
          midi->scan(words.number(1), words.number(2));
          std::ostringstream text;
          for (const auto& event : midi->sequence().events()) {
            const auto& note = std::get<MidiNoteMessage>(event.message);
            text << rounded(event.time - kSecondsOfChord) << ':' << int{note.note} << '*'
                 << rounded(static_cast<double>(note.duration)) << ' ';
          }
          return text.str();
        }},
       {"clicks",
        [&](const test::Words& words) {
          return textOf(ChordTimes::of(*m_song, tempo)->beats(words.number(0), words.number(1)));
        }},
       {"countIn",
        [&](const test::Words& words) {
          return textOf(ChordTimes::of(*m_song, tempo)->countIn(words.number(0)));
        }},
       {"chordsAt", [&](const test::Words& words) {
          std::string text;
          for (std::size_t i = 0; i < words.size(); ++i)
            text += std::to_string(midi->findIndex(words.real(i) + kSecondsOfChord)) + ' ';
          return text;
        }}});
}

TEST_F(QBMIDIPlayerTest, cursorStopsBehindTheLastChord) {
  EXPECT_EQ(player()->first(), -1);
  addChords(2);
  m_song = m_store.song("Other");
  addChords(2);
  const auto midi = player();
  EXPECT_EQ(midi->first(), 0);
  EXPECT_EQ(midi->next(), 1);
  EXPECT_EQ(midi->next(), -1);
  EXPECT_EQ(midi->next(), -1);
  EXPECT_EQ(midi->chordAtIndex(2), nullptr);
}

TEST_F(QBMIDIPlayerTest, indexesEndBeforeTheLastChord) {
  EXPECT_EQ(player()->findIndex(0.5), -1) << "no chord";
  m_song = m_store.song("One");
  addChords(1);
  EXPECT_EQ(player()->findIndex(0.5), -1) << "the only chord is the last";
  m_song = m_store.song("Three");
  addChords(3);
  const auto midi = player();
  EXPECT_EQ(midi->findIndex(0.2), -1);
  EXPECT_EQ(midi->findIndex(0.5), 0);
  EXPECT_EQ(midi->findIndex(0.8), 1);
  EXPECT_EQ(midi->findIndex(1.2), -1);
}

/// 800 sums of single precision lie 0.005 steps off the products.
TEST_F(QBMIDIPlayerTest, indexesFollowTheTimesOfTheSequence) {
  addChords(800);
  const auto midi = player();
  midi->scanFull();
  const auto events = midi->sequence().events();
  for (int i : {0, 100, 500, 798})
    EXPECT_EQ(midi->findIndex(events[static_cast<std::size_t>(2 * i)].time), i);
}

TEST_F(QBMIDIPlayerTest, playsOnADeviceWithTheProgramOfASteelGuitar) {
  addChords(4);
  const auto midi = player();
  midi->scan(0, 4);
  EXPECT_EQ(midi->playbackPosition(), 0);
  ASSERT_TRUE(midi->start());
  EXPECT_TRUE(midi->isPlaying());
  const auto events = midi->sequence().events();
  const auto& change = std::get<MidiChannelMessage>(events.front().message);
  EXPECT_EQ(change.status, 0xC0);
  EXPECT_EQ(change.data1, 25);
  midi->setPlaybackPosition(0);
  EXPECT_EQ(midi->playbackPosition(), -1) << "before the first chord";
  listen(1.7);
  EXPECT_EQ(midi->playbackPosition(), 0);
  midi->setPlaybackPosition(7);
  listen(3);
  EXPECT_TRUE(midi->isOver());
  EXPECT_TRUE(midi->stop());
  EXPECT_FALSE(midi->isPlaying());
  EXPECT_FALSE(midi->playNote(0, 40, 1)) << "the track is gone";
  const auto heard = m_audio.heard();
  EXPECT_GT(*std::ranges::max_element(heard), 2000);
}

// ---- rendering

struct SongRendererTest : QBMIDIPlayerTest {
  std::vector<std::int16_t> rendered(const std::optional<SongRenderer::Range>& range = {},
                                     double rate = 1) {
    const auto synth = synthesizer();
    SongRenderer renderer(*m_song, range, rate, *synth);
    std::vector<std::int16_t> all, part(2000);
    for (auto next = renderer.next(part); !next.empty(); next = renderer.next(part))
      all.insert(all.end(), next.begin(), next.end());
    EXPECT_EQ(renderer.progress(), 1);
    return all;
  }
  /// Of either channel.
  static std::size_t firstSound(const std::vector<std::int16_t>& samples, std::size_t frame = 0) {
    const auto from = samples.begin() + static_cast<std::ptrdiff_t>(2 * frame);
    const auto sound = std::find_if(from, samples.end(), [](auto s) { return std::abs(s) > 500; });
    return static_cast<std::size_t>(sound - samples.begin()) / 2;
  }
};

TEST_F(SongRendererTest, chordsStandWhereTheyWereRecorded) {
  for (const char* frets : {"xxxxxx", "022100", "xxxxxx", "xxxxxx", "xxxxxx", "xxxxxx", "xxxxxx",
                            "xxxxxx", "xxxxxx", "xxxxxx", "xxxxxx", "xxxxxx", "320003"})
    test::addChord(m_song, frets);
  for (const double rate : {1.0, 0.5, 2.0}) {
    const auto samples = rendered({}, rate);
    const auto step = static_cast<double>(kFramesOfStep) / rate;
    EXPECT_NEAR(static_cast<double>(firstSound(samples)), step, 300) << rate;
    EXPECT_NEAR(static_cast<double>(firstSound(samples, static_cast<std::size_t>(11.9 * step))),
                12 * step, 300)
        << rate;
    EXPECT_GT(samples.size() / 2, 13.0 * step);
    EXPECT_LT(samples.size() / 2, 14.0 * step + 10.5 * 44100) << "it fades away";
  }
  EXPECT_LT(firstSound(rendered(SongRenderer::Range{13, 13})), 300U) << "a range starts at once";
}

}  // namespace
}  // namespace korvel
