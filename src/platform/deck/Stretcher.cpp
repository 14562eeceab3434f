// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/deck/Stretcher.h"

#include <rubberband/RubberBandStretcher.h>

#include <algorithm>
#include <cassert>

#include "platform/sound/SampleRate.h"

namespace korvel::platform {
namespace {

using RubberBand::RubberBandStretcher;

constexpr int kOptions =
    RubberBandStretcher::OptionProcessRealTime | RubberBandStretcher::OptionEngineFiner |
    RubberBandStretcher::OptionThreadingNever | RubberBandStretcher::OptionChannelsTogether |
    RubberBandStretcher::OptionPitchHighConsistency;

/// The slower it is, the more a struck note is spread around its place and begins to sound before
/// it; this holds it back so far, in seconds for what is added to each second, that the ear has it
/// there.
constexpr double kHeldBack = 0.0045;

std::size_t framesHeldBack(double rate) {
  return static_cast<std::size_t>(std::max(1 / rate - 1, 0.0) * kHeldBack * kSampleRate);
}

}  // namespace

struct Stretcher::Engine {
  using Side = std::array<float, kMostFrames>;

  Engine() : library(kSampleRate, kChannels, kOptions) {
    library.setDebugLevel(0);
    library.setMaxProcessSize(kMostFrames);
  }

  std::array<float*, kChannels> pointers() { return {sides[0].data(), sides[1].data()}; }

  std::size_t available() const {
    return static_cast<std::size_t>(std::max(library.available(), 0));
  }
  /// At most so many frames into the sides.
  std::size_t retrieve(std::size_t most) {
    const std::size_t frames = std::min({most, kMostFrames, available()});
    return frames > 0 ? library.retrieve(pointers().data(), frames) : 0;
  }

  RubberBandStretcher library;
  std::array<Side, kChannels> sides{};
};

Stretcher::Stretcher() : m_engine(std::make_unique<Engine>()) {}
Stretcher::~Stretcher() = default;

void Stretcher::begin(double rate, double pitch) {
  RubberBandStretcher& library = m_engine->library;
  library.reset();
  library.setTimeRatio(1 / rate);
  library.setPitchScale(pitch);
  const std::size_t delay = library.getStartDelay();
  m_toDrop = delay - std::min(framesHeldBack(rate), delay);
}

std::size_t Stretcher::lead() const { return m_engine->library.getPreferredStartPad(); }

void Stretcher::put(std::span<const float> samples) {
  assert(samples.size() <= kMostFrames * kChannels);
  const std::size_t frames = samples.size() / kChannels;
  for (std::size_t i = 0; i < frames; ++i)
    for (std::size_t side = 0; side < kChannels; ++side)
      m_engine->sides[side][i] = samples[i * kChannels + side];
  const auto in = m_engine->pointers();
  m_engine->library.process(in.data(), frames, false);
}

std::size_t Stretcher::available() {
  drop();
  return m_engine->available();
}

void Stretcher::drop() {
  while (m_toDrop > 0) {
    const std::size_t dropped = m_engine->retrieve(m_toDrop);
    if (dropped == 0) return;
    m_toDrop -= dropped;
  }
}

void Stretcher::take(std::span<float> samples) {
  while (!samples.empty()) {
    const std::size_t frames = m_engine->retrieve(samples.size() / kChannels);
    if (frames == 0) return;
    for (std::size_t i = 0; i < frames; ++i)
      for (std::size_t side = 0; side < kChannels; ++side)
        samples[i * kChannels + side] = m_engine->sides[side][i];
    samples = samples.subspan(frames * kChannels);
  }
}

}  // namespace korvel::platform
