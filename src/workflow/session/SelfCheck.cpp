// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/session/SelfCheck.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "analysis/spectrum/QBFFTGuitar.h"
#include "audio/MonoTrack.h"
#include "model/instruments/QBTuning.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/Resources.h"
#include "platform/midi/FluidSynthesizer.h"
#include "platform/midi/SoundFonts.h"
#include "platform/persistence/ManagedContext.h"
#include "platform/sound/AudioSystem.h"
#include "platform/sound/SampleRate.h"
#include "platform/sqlite/StoreFile.h"
#include "platform/text/UserError.h"

namespace korvel {
namespace {

using platform::phrase;
using platform::UserError;
using platform::UserText;

constexpr double kSamplesASecond = platform::kSampleRate;
constexpr double kOpenA = 110.0;
constexpr double kLowEHertz = 82.407;
constexpr double kHertzOfBin = kSamplesASecond / QBFFT::m_numSamples;
constexpr double kLoud = 10000.0;
constexpr std::uint8_t kProgramChange = 0xC0;
constexpr std::uint8_t kSteelGuitar = 25;
constexpr std::uint8_t kLowE = 40;
constexpr std::size_t kDemoSamples = 10 * platform::kSampleRate;  // that sound, at least

UserText check(platform::SqliteDatabase& store) {
  const auto problems = platform::StoreFile::problems(store);
  if (!problems.empty())
    throw UserError(
        phrase("Message",
               "%1: the store is damaged (%2); restore a backup of it by \"korvel-cli restore\""),
        store.file(), problems.front());
  return {phrase("Message", "%1 is sound"), store.file()};
}

UserText checkStore() { return check(QBTabMgr::db().context().store()); }

UserText checkStoreBeside(const std::string& file) {
  platform::SqliteDatabase store(file, platform::SqliteDatabase::Mode::lockedByUs);
  return check(store);
}

/// Samples of the demo recording that are louder than its noise.
std::size_t soundingSamples(MonoTrack& demo) {
  std::size_t sounding = 0;
  for (auto slice = demo.readSamples(); !slice.empty(); slice = demo.readSamples())
    sounding += static_cast<std::size_t>(
        std::ranges::count_if(slice, [](float sample) { return std::abs(sample) > 0.001F; }));
  return sounding;
}

UserText checkDecoding() {
  const auto file = platform::Resources::ofProgram().locate("demo/First Steps.ogg");
  if (!file)
    throw UserError(phrase("Message", "the demo recording is missing; install Korvel again"));
  MonoTrack demo(*file);
  demo.startRecord(0);
  if (soundingSamples(demo) < kDemoSamples)
    throw UserError(
        phrase("Message", "%1 cannot be decoded; install FFmpeg's libraries with Vorbis"),
        file->string());
  return phrase("Message", "the demo recording is read");
}

/// The strongest frequency of a block between 40 and 805 Hz.
double strongest(std::span<const double> block) {
  QBFFTGuitar spectrum(block, 0);
  spectrum.fft();
  const auto amps = spectrum.amps();
  const auto bin = std::ranges::max_element(amps) - amps.begin();
  return static_cast<double>(bin) * kSamplesASecond / static_cast<double>(amps.size());
}

/// A block of the open A string's fundamental.
std::vector<double> openA() {
  std::vector<double> block(QBFFT::m_numSamples);
  for (std::size_t i = 0; i < block.size(); ++i)
    block[i] =
        kLoud * std::sin(2 * std::numbers::pi * kOpenA * static_cast<double>(i) / kSamplesASecond);
  return block;
}

UserText checkTransform() {
  if (std::abs(strongest(openA()) - kOpenA) > kHertzOfBin)
    throw UserError(
        phrase("Message", "a tone of 110 Hz is not found; install FFTW's libraries again"));
  return phrase("Message", "a tone of 110 Hz is found");
}

/// A block of one channel of the open low E string.
std::vector<double> playedLowE(const std::filesystem::path& soundFont) {
  platform::FluidSynthesizer synthesizer(soundFont, {kSteelGuitar});
  synthesizer.channelMessage({kProgramChange, kSteelGuitar, 0});
  synthesizer.noteOn({0, kLowE, 100, 0, 1});
  std::array<std::int16_t, 2 * QBFFT::m_numSamples> stereo{};
  synthesizer.render(stereo);
  std::vector<double> block(QBFFT::m_numSamples);
  for (std::size_t i = 0; i < block.size(); ++i) block[i] = stereo[2 * i];
  return block;
}

UserText checkSynthesizer(const std::optional<std::filesystem::path>& soundFont) {
  const auto font = platform::SoundFonts(platform::SoundFonts::Folders::ofMachine())
                        .find(soundFont, kSteelGuitar);
  const double heard = strongest(playedLowE(font));
  const double partial = std::round(heard / kLowEHertz);
  if (partial < 1 || std::abs(heard - partial * kLowEHertz) > 2 * kHertzOfBin)
    throw UserError(
        phrase("Message", "%1: its guitar does not sound as it should; choose another SoundFont"),
        font.string());
  return {phrase("Message", "the open low E string is played with %1"), font.filename().string()};
}

/// The first is the default, which is there whether or not a device is.
std::size_t countOf(const std::vector<std::string>& devices) {
  return devices.empty() ? 0 : devices.size() - 1;
}

UserText checkDevices() {
  platform::AudioSystem& sound = platform::AudioSystem::main();
  return {phrase("Message", "%1 to play on, %2 to record from"), countOf(sound.outputs()),
          countOf(sound.inputs())};
}

}  // namespace

std::vector<SelfCheck> selfChecks(const std::optional<std::filesystem::path>& soundFont) {
  const std::string store = QBTabMgr::db().context().store().file();
  const auto playing = [soundFont] { return checkSynthesizer(soundFont); };
  return {{phrase("SelfCheck", "Store"), checkStore, [store] { return checkStoreBeside(store); }},
          {phrase("SelfCheck", "Decoding"), checkDecoding, checkDecoding},
          {phrase("SelfCheck", "Transform"), checkTransform, checkTransform},
          {phrase("SelfCheck", "Synthesiser"), playing, playing},
          {phrase("SelfCheck", "Sound devices"), checkDevices}};
}

}  // namespace korvel
