// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/sound/SampleRate.h"

struct AVFrame;
struct SwrContext;

namespace korvel::platform {

class MediaAsset;
struct MediaTrack;

/// Turns sound of any kind into samples of one channel at one rate. A sample is the mean of its
/// channels, 1 is full scale. The kind may change from one piece to the next.
class MonoMixer {
 public:
  /// Samples a second of what it makes.
  static constexpr int kRate = kSampleRate;
  static constexpr int kMostChannels = 64;
  /// Throws MediaError for a track of more channels than that.
  static void requireMixable(const MediaAsset& asset, const MediaTrack& track);

  MonoMixer();
  MonoMixer(MonoMixer&&) noexcept;
  MonoMixer& operator=(MonoMixer&&) noexcept;
  ~MonoMixer();

  /// Adds what the piece becomes to the samples; nothing when it is of a kind that cannot be mixed.
  void append(const AVFrame& frame, std::vector<float>& samples);
  void append(std::span<const std::int16_t> mono, int rate, std::vector<float>& samples);
  /// Adds what the resampler still holds back. Afterwards it begins anew.
  void finish(std::vector<float>& samples);

 private:
  struct Kind {
    int format = -1;
    int rate = 0;
    int channels = 0;
    bool operator==(const Kind&) const = default;
  };
  struct FreeConverter {
    void operator()(SwrContext* converter) const;
  };

  bool prepare(const Kind& kind, std::vector<float>& samples);
  void makeConverter();
  void convert(const std::uint8_t** in, int count, std::vector<float>& samples);

  std::unique_ptr<SwrContext, FreeConverter> m_converter;
  Kind m_kind;
};

}  // namespace korvel::platform
