// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/midi/FluidSynthesizer.h"

#include <complex>

#include "platform/midi/SoundFonts.h"
#include "platform/numerics/FourierTransform.h"
#include "support/Guitar.h"
#include "support/ScratchFolder.h"
#include "support/SoundFont.h"
#include "support/Testing.h"

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

 private:
  FluidSynthesizer m_synth{test::kSoundFont, {kGuitar}};
};

int peakOf(const std::vector<std::int16_t>& samples) {
  int peak = 0;
  for (const int sample : samples) peak = std::max(peak, std::abs(sample));
  return peak;
}

/// Of the left channel, from the strongest bin and its neighbours.
double strongestHertz(const std::vector<std::int16_t>& samples) {
  const std::size_t size = samples.size() / 2;
  RealTransform transform(size);
  for (std::size_t i = 0; i < size; ++i)
    transform.input()[i] =
        samples[2 * i] *
        std::pow(std::sin(M_PI * static_cast<double>(i) / static_cast<double>(size)), 2);
  transform.run();
  const auto amp = [&](std::size_t bin) { return std::log(std::abs(transform.output()[bin])); };
  std::size_t best = 1;
  for (std::size_t bin = 2; bin < size / 2; ++bin)
    if (amp(bin) > amp(best)) best = bin;
  const double offset =
      (amp(best - 1) - amp(best + 1)) / 2 / (amp(best - 1) - 2 * amp(best) + amp(best + 1));
  return (static_cast<double>(best) + offset) * Synthesizer::kSampleRate /
         static_cast<double>(size);
}

TEST(FluidSynthesizer, openLowESoundsAtItsFrequency) {
  Guitar guitar;
  guitar.strike(40);
  guitar.render(4096);  // the pluck
  const double hertz = strongestHertz(guitar.render(65536));
  const double partial = std::round(hertz / 82.41);
  EXPECT_GE(partial, 1);
  EXPECT_LE(partial, 4);
  EXPECT_NEAR(hertz / partial, 82.41, 0.2);
  RecordProperty("hertz", std::to_string(hertz / partial));
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
