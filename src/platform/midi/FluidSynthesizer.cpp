// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/midi/FluidSynthesizer.h"

#include <fluidsynth.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <mutex>

#include "platform/midi/SoundFontFile.h"

namespace korvel::platform {
namespace {

/// Chords of six strings, struck at velocity 50 and a block apart, peak at a half with the loudest
/// of the General MIDI fonts that Debian has.
constexpr double kGain = 2.0;
constexpr std::size_t kFramesAtOnce = 512;
constexpr int kPercussionBank = 128;
constexpr int kPercussionChannel = 9;
constexpr std::size_t kKeys = 128;
constexpr int kNibble = 4;
constexpr int kDataBits = 7;

using Settings = std::unique_ptr<fluid_settings_t, decltype(&delete_fluid_settings)>;
using Synth = std::unique_ptr<fluid_synth_t, decltype(&delete_fluid_synth)>;

/// What goes wrong is told by errors, not on the user's terminal.
void keepQuiet() {
  static std::once_flag done;
  std::call_once(done, [] {
    for (int level = FLUID_PANIC; level < LAST_LOG_LEVEL; ++level)
      fluid_set_log_function(level, nullptr, nullptr);
  });
}

Settings settings() {
  keepQuiet();
  Settings made(new_fluid_settings(), &delete_fluid_settings);
  fluid_settings_setint(made.get(), "synth.threadsafe-api", 0);
  fluid_settings_setint(made.get(), "synth.dynamic-sample-loading", 1);
  fluid_settings_setint(made.get(), "synth.reverb.active", 0);
  fluid_settings_setint(made.get(), "synth.chorus.active", 0);
  fluid_settings_setnum(made.get(), "synth.gain", kGain);
  fluid_settings_setnum(made.get(), "synth.sample-rate", Synthesizer::kSampleRate);
  return made;
}

std::int16_t sampleOf(float value) {
  constexpr float kFull = 32767;
  return static_cast<std::int16_t>(std::lrint(std::clamp(value, -1.0F, 1.0F) * kFull));
}

}  // namespace

struct FluidSynthesizer::Engine {
  Engine() : blockFrames(static_cast<std::size_t>(fluid_synth_get_internal_bufsize(synth.get()))) {}

  void load(const std::filesystem::path& soundFont, const std::vector<int>& programs) {
    const int font = fluid_synth_sfload(synth.get(), soundFont.c_str(), 1);
    if (font == FLUID_FAILED)
      throw SoundFontError(
          soundFont,
          phrase("Message", "is a damaged SoundFont; fetch it anew or choose another one"));
    for (const int program : programs) fluid_synth_pin_preset(synth.get(), font, 0, program);
    fluid_synth_pin_preset(synth.get(), font, kPercussionBank, 0);
  }

  /// Up to kFramesAtOnce.
  void render(std::size_t frames) {
    fluid_synth_write_float(synth.get(), static_cast<int>(frames), left.data(), 0, 1, right.data(),
                            0, 1);
    framesInBlock = (framesInBlock + frames) % blockFrames;
  }

  Settings options = settings();
  Synth synth{new_fluid_synth(options.get()), &delete_fluid_synth};
  /// The library computes whole blocks and keeps what was not asked for yet.
  std::size_t blockFrames;
  std::size_t framesInBlock = 0;
  std::array<float, kFramesAtOnce> left{}, right{};
};

FluidSynthesizer::FluidSynthesizer(const std::filesystem::path& soundFont,
                                   const std::vector<int>& programs) {
  // The library would hand other files to readers that complain on the terminal.
  const SoundFontFile checked(soundFont);
  m_engine = std::make_unique<Engine>();
  m_engine->load(checked.path(), programs);
}

FluidSynthesizer::~FluidSynthesizer() = default;

void FluidSynthesizer::tune(double cents) {
  constexpr double kCentsOfKey = 100;
  constexpr int kOurs = 0;
  std::array<double, kKeys> pitches{};
  for (std::size_t key = 0; key < pitches.size(); ++key)
    pitches[key] = kCentsOfKey * static_cast<double>(key) + cents;
  fluid_synth_t* synth = m_engine->synth.get();
  fluid_synth_activate_key_tuning(synth, kOurs, kOurs, "Korvel", pitches.data(), 0);
  for (int channel = 0; channel < fluid_synth_count_midi_channels(synth); ++channel)
    if (channel != kPercussionChannel) fluid_synth_activate_tuning(synth, channel, kOurs, kOurs, 0);
}

void FluidSynthesizer::noteOn(const MidiNoteMessage& note) {
  fluid_synth_noteon(m_engine->synth.get(), note.channel, note.note, note.velocity);
}

void FluidSynthesizer::noteOff(const MidiNoteMessage& note) {
  fluid_synth_noteoff(m_engine->synth.get(), note.channel, note.note);
}

void FluidSynthesizer::channelMessage(const MidiChannelMessage& message) {
  fluid_synth_t* synth = m_engine->synth.get();
  const int channel = message.status & 0x0F;
  switch (message.status >> kNibble) {
    case 0xA:
      fluid_synth_key_pressure(synth, channel, message.data1, message.data2);
      break;
    case 0xB:
      fluid_synth_cc(synth, channel, message.data1, message.data2);
      break;
    case 0xC:
      fluid_synth_program_change(synth, channel, message.data1);
      break;
    case 0xD:
      fluid_synth_channel_pressure(synth, channel, message.data1);
      break;
    case 0xE:
      fluid_synth_pitch_bend(synth, channel, (message.data2 << kDataBits) | message.data1);
      break;
    default:
      break;
  }
}

void FluidSynthesizer::render(std::span<std::int16_t> samples) {
  while (!samples.empty()) {
    const std::size_t frames = std::min(samples.size() / kChannels, kFramesAtOnce);
    m_engine->render(frames);
    for (std::size_t i = 0; i < frames; ++i) {
      samples[kChannels * i] = sampleOf(m_engine->left[i]);
      samples[kChannels * i + 1] = sampleOf(m_engine->right[i]);
    }
    samples = samples.subspan(kChannels * frames);
  }
}

void FluidSynthesizer::silence() {
  constexpr int kAllChannels = -1;
  fluid_synth_all_sounds_off(m_engine->synth.get(), kAllChannels);
  if (m_engine->framesInBlock > 0)
    m_engine->render(m_engine->blockFrames - m_engine->framesInBlock);
}

}  // namespace korvel::platform
