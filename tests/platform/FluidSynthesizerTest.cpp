// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/midi/FluidSynthesizer.h"

#include "platform/midi/SoundFonts.h"
#include "support/Testing.h"
#include "support/sound/Guitar.h"
#include "support/sound/SoundFont.h"
#include "support/store/ScratchFolder.h"

namespace korvel::platform {
namespace {

constexpr int kGuitar = 25;

class Guitar {
 public:
  Guitar() { m_synth.channelMessage({0xC0, kGuitar, 0}); }

  void strike(int note, bool on = true) {
    const MidiNoteMessage message{0, static_cast<std::uint8_t>(note), 50, 20, 1};
    on ? m_synth.noteOn(message) : m_synth.noteOff(message);
  }
  std::vector<std::int16_t> render(std::size_t frames) {
    std::vector<std::int16_t> samples(2 * frames);
    m_synth.render(samples);
    return samples;
  }
  void silence() { m_synth.silence(); }
  void tune(double cents) { m_synth.tune(cents); }

 private:
  FluidSynthesizer m_synth{test::kSoundFont, {kGuitar}};
};

int peakOf(const std::vector<std::int16_t>& samples) {
  int peak = 0;
  for (const int sample : samples) peak = std::max(peak, std::abs(sample));
  return peak;
}

TEST(FluidSynthesizer, sixStringsAreLoudAndNotClipped) {
  Guitar guitar;
  int peak = 0;
  for (const char* shape : {"320003", "022100", "133211", "355433", "577655", "799877"}) {
    for (const int note : test::notesOf(shape)) guitar.strike(note);
    peak = std::max(peak, peakOf(guitar.render(16384)));
    for (const int note : test::notesOf(shape)) guitar.strike(note, false);
  }
  EXPECT_GT(peak, 6000);
  EXPECT_LT(peak, 28000);
}

/// Crossings of zero, upwards, in a second.
int cyclesOf(Guitar& guitar, int note) {
  guitar.strike(note);
  guitar.render(4096);
  const auto samples = guitar.render(Synthesizer::kSampleRate);
  int cycles = 0;
  for (std::size_t i = 2; i < samples.size(); i += 2)
    cycles += samples[i - 2] < 0 && samples[i] >= 0 ? 1 : 0;
  guitar.silence();
  return cycles;
}

TEST(FluidSynthesizer, aGuitarThatIsTunedLowerSoundsLower) {
  Guitar low, usual;
  low.tune(-100);
  const double ratio = static_cast<double>(cyclesOf(low, 76)) / cyclesOf(usual, 76);
  EXPECT_NEAR(ratio, std::exp2(-1 / 12.0), 0.02);
}

TEST(FluidSynthesizer, silenceIsExactAndTheNextNoteStartsAtOnce) {
  Guitar guitar;
  EXPECT_EQ(peakOf(guitar.render(1000)), 0);
  guitar.strike(64);
  EXPECT_GT(peakOf(guitar.render(1001)), 0);
  guitar.silence();
  EXPECT_EQ(peakOf(guitar.render(64)), 0);
  guitar.strike(64);
  EXPECT_GT(peakOf(guitar.render(64)), 0) << "on a multiple of 64 frames since";
}

// ---- sound fonts

struct SoundFontsTest : testing::Test {
  /// A font of that name with the guitar, and nothing else, in it.
  static void put(const std::filesystem::path& file, int program = kGuitar) {
    const auto number = [](std::size_t value) {
      std::string bytes;
      for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> 8 * i);
      return bytes;
    };
    const auto chunk = [&](const std::string& name, const std::string& content) {
      return name + number(content.size()) + content;
    };
    // Of odd size; compressed fonts do not fill that up.
    const std::string samples =
        chunk("LIST", "sdta.") + (file.extension() == ".sf3" ? "" : std::string(1, '\0'));
    std::string preset(38, '\0');
    preset[20] = static_cast<char>(program);
    std::filesystem::create_directories(file.parent_path());
    test::writeFile(
        file,
        chunk("RIFF", "sfbk" + samples + chunk("LIST", "pdta" + chunk("phdr", preset + preset))));
  }
  std::filesystem::path data(const char* place) const { return m_folder.path() / place; }
  std::string found(const std::optional<std::filesystem::path>& chosen = std::nullopt) const {
    try {
      return SoundFonts({{data("home")}, {data("local"), data("usr")}}).find(chosen, kGuitar);
    } catch (const SoundFontError& error) {
      return error.what();
    }
  }

  test::ScratchFolder m_folder;
};

TEST_F(SoundFontsTest, areLookedForInOrder) {
  EXPECT_NE(found().find("apt install timgm6mb-soundfont"), std::string::npos) << found();
  put(data("usr/sounds/sf2/drums.sf2"), 0);
  // Drums play no guitar; each next one is better.
  for (const char* place :
       {"usr/soundfonts/z.SF2", "local/sounds/sf3/y.sf3", "usr/sounds/sf3/default-GM.sf3",
        "usr/sounds/sf2/default-GM.sf2", "home/sounds/sf3/b.sf3", "home/sounds/sf3/a.sf3",
        "home/soundfonts/c.sf2"}) {
    put(data(place));
    EXPECT_EQ(found(), data(place));
  }
  put(data("mine.sf2"), 0);
  EXPECT_EQ(found(data("mine.sf2")), data("mine.sf2")) << "the user's choice is not questioned";
}

TEST_F(SoundFontsTest, otherFilesAreRefusedByName) {
  put(data("font.sf2"));
  const std::string whole = test::readFile(data("font.sf2"));
  for (const std::string& bytes :
       {std::string("Dear diary"), std::string(), whole.substr(0, whole.size() - 1),
        whole.substr(0, 20), "RIFF" + std::string(60, '\xFF')}) {
    test::writeFile(data("bad.sf2"), bytes);
    EXPECT_TRUE(found(data("bad.sf2")).starts_with(data("bad.sf2").string() + ": is ")) << bytes;
    EXPECT_THROW(FluidSynthesizer(data("bad.sf2"), {}), SoundFontError);
  }
  EXPECT_EQ(found(data("none.sf2")),
            data("none.sf2").string() + ": there is no such SoundFont; choose another one");
}

}  // namespace
}  // namespace korvel::platform
