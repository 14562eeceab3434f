// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/midi/SequenceRenderer.h"

#include "platform/midi/MusicSequence.h"
#include "support/Testing.h"

namespace korvel::platform {
namespace {

constexpr std::uint8_t kProgramChange = 0xC0;

/// Writes down at which frame it is told what. Sounds as loud as notes are held.
class Witness final : public Synthesizer {
 public:
  void noteOn(const MidiNoteMessage& note) override {
    tell("+", note.note);
    ++m_held;
  }
  void noteOff(const MidiNoteMessage& note) override {
    tell("-", note.note);
    --m_held;
  }
  void channelMessage(const MidiChannelMessage& message) override { tell("p", message.data1); }
  void render(std::span<std::int16_t> samples) override {
    std::ranges::fill(samples, static_cast<std::int16_t>(1000 * m_held));
    m_frame += samples.size() / kChannels;
  }
  void silence() override {
    m_held = 0;
    tell("silence", 0);
    m_frame = 0;
  }
  std::string story() { return std::exchange(m_story, {}).str(); }

 private:
  void tell(const char* what, int number) {
    m_story << m_frame << what << (number ? std::to_string(number) : "") << ' ';
  }

  std::ostringstream m_story;
  std::size_t m_frame = 0;
  int m_held = 0;
};

struct SequenceRendererTest : testing::Test {
  /// In frames at rate 1.
  void add(double start, double frames, std::uint8_t note) {
    const auto beats = static_cast<float>(frames / Synthesizer::kSampleRate);
    m_track.addNote(start / Synthesizer::kSampleRate, {0, note, 50, 20, beats});
  }
  void setProgram(double start, std::uint8_t program) {
    m_track.addChannelEvent(start / Synthesizer::kSampleRate, {kProgramChange, program, 0});
  }
  void use() {
    m_events = m_sequence.events();
    m_renderer.use(m_events);
  }
  std::vector<std::int16_t> render(std::size_t frames) {
    std::vector<std::int16_t> samples(frames * Synthesizer::kChannels);
    m_renderer.render(samples);
    return samples;
  }
  /// What happens at which frame when so many are rendered in buffers of that size.
  std::string played(std::size_t frames, std::size_t size) {
    for (; frames > 0; frames -= std::min(frames, size)) render(std::min(frames, size));
    return m_witness.story();
  }

  Witness m_witness;
  MusicSequence m_sequence;
  MusicTrack& m_track = m_sequence.newTrack();
  MusicEvents m_events;
  SequenceRenderer m_renderer{m_witness};
};

TEST_F(SequenceRendererTest, eventsComeAtTheirFramesWhateverTheBuffers) {
  add(700, 300, 60);
  add(700, 301.4, 64);
  add(1000, 50, 62);
  add(1000, 0, 63);
  setProgram(1000, 25);
  for (const std::size_t size : {1U, 64U, 700U, 5000U}) {
    Witness witness;
    SequenceRenderer renderer(witness);
    m_events = m_sequence.events();
    renderer.use(m_events);
    std::vector<std::int16_t> samples(size * Synthesizer::kChannels);
    for (std::size_t frame = 0; frame < 1200; frame += size) renderer.render(samples);
    EXPECT_EQ(witness.story(),
              "700+60 700+64 1000-60 1000p25 1000+62 1000+63 1001-64 1001-63 1050-62 ")
        << size;
    EXPECT_TRUE(renderer.isOver());
  }
}

TEST_F(SequenceRendererTest, rateStretchesWhatIsStillToCome) {
  add(1000, 1000, 60);
  use();
  m_renderer.setRate(0.5);
  EXPECT_EQ(played(1000, 333), "");
  m_renderer.setRate(2);
  EXPECT_EQ(played(500, 97), "1250+60 ");
  EXPECT_NEAR(m_renderer.position() * Synthesizer::kSampleRate, 1500, 1e-6);
  m_renderer.setRate(0);
  EXPECT_EQ(played(5000, 512), "") << "stands still";
  m_renderer.setRate(-1);
  EXPECT_EQ(played(100, 512), "");
  m_renderer.setRate(1);
  EXPECT_EQ(played(1000, 512), "7100-60 ");
}

TEST_F(SequenceRendererTest, seekingSilencesAndTakesUpTheChannels) {
  setProgram(0, 3);
  setProgram(500, 25);
  add(0, 4000, 60);
  add(600, 100, 61);
  use();
  EXPECT_EQ(played(100, 100), "0p3 0+60 ");
  m_renderer.seek(600.0 / Synthesizer::kSampleRate);
  EXPECT_EQ(played(50, 50), "356silence 0p3 0p25 0+61 ");
  EXPECT_EQ(played(100, 50), "100-61 ") << "the silenced note does not end again";
  m_renderer.seek(0);
  EXPECT_EQ(played(1, 1), "406silence 0p3 0+60 ");
}

TEST_F(SequenceRendererTest, aLoopTurnsBackToTheFrame) {
  add(100, 300, 60);
  add(500, 400, 61);
  add(600, 10, 62);
  use();
  m_renderer.setLoop(
      SequenceRenderer::Loop{100.0 / Synthesizer::kSampleRate, 600.0 / Synthesizer::kSampleRate});
  EXPECT_EQ(played(1650, 64),
            "100+60 400-60 500+61 600-61 600+60 900-60 1000+61 1100-61 1100+60 1400-60 1500+61 "
            "1600-61 1600+60 ");
}

TEST_F(SequenceRendererTest, whatASeekCutsOffFadesOut) {
  add(0, 4000, 60);
  use();
  render(10);
  m_renderer.seek(1);
  const auto samples = render(300);
  EXPECT_GT(samples.front(), 990);
  EXPECT_TRUE(std::ranges::is_sorted(samples, std::greater()));
  EXPECT_EQ(samples[512], 0);
}

TEST_F(SequenceRendererTest, newEventsTakeEffectWhilePlaying) {
  add(0, 1000, 60);
  use();
  EXPECT_EQ(played(100, 100), "0+60 ");
  setProgram(0, 25);
  add(50, 100, 61);
  add(100, 100, 62);
  use();
  EXPECT_EQ(played(1000, 100), "100p25 100+62 200-62 1000-60 ")
      << "past notes stay away, and held ones end in time";
}

TEST_F(SequenceRendererTest, onePitchSoundsOnceAtATime) {
  add(0, 100, 60);
  add(0, 300, 60);
  add(200, 300, 60);
  use();
  EXPECT_EQ(played(1000, 512), "0+60 200-60 200+60 500-60 ");
}

TEST_F(SequenceRendererTest, eventsThatMidiHasNotAreRefused) {
  EXPECT_FALSE(m_track.addNote(0, {0, 128, 50, 20, 1}));
  EXPECT_FALSE(m_track.addNote(0, {16, 60, 50, 20, 1}));
  EXPECT_FALSE(m_track.addNote(-1, {0, 60, 50, 20, 1}));
  EXPECT_FALSE(m_track.addNote(0, {0, 60, 50, 20, std::numeric_limits<float>::infinity()}));
  EXPECT_FALSE(m_track.addChannelEvent(0, {0x90, 60, 50}));
  EXPECT_TRUE(m_sequence.events().empty());
}

}  // namespace
}  // namespace korvel::platform
