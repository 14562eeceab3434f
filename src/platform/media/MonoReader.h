// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "platform/media/MediaAsset.h"
#include "platform/sound/SampleRate.h"

namespace korvel::platform {

/// Decodes one track of a media file as a single channel at kRate samples a second, once: start,
/// then next until it is empty. A sample is the mean of its channels, 1 is full scale, and louder
/// ones are not clipped. Sound at another rate is resampled, wherever in the file the rate changes.
/// Padding and damage are treated as by MediaReader.
class MonoReader {
 public:
  static constexpr int kRate = kSampleRate;

  /// Opens the file anew. Throws MediaError when it has become unreadable, or the track is no sound
  /// that can be decoded or has more channels than can be mixed, which are 64.
  MonoReader(const MediaAsset& asset, const MediaTrack& track);
  MonoReader(MonoReader&&) noexcept;
  MonoReader& operator=(MonoReader&&) noexcept;
  ~MonoReader();

  /// False when the decoder refuses the track. To be called once.
  bool start();
  /// The next samples, about a third of a second; empty at the end, and before start or after
  /// cancel. Valid until the next call.
  std::span<const float> next();
  /// Goes to shortly before that sample, later or earlier in the track. Answers the sample that
  /// `next` goes on with; none where the file does not tell, and within the first second, which is
  /// right only when it is read from the beginning. There is nothing to read any more then.
  std::optional<std::int64_t> seek(std::int64_t sample);
  /// From a successful start to the end of the track or cancel.
  bool isReading() const;
  /// How much of the file has been read, 0..1.
  double progress() const;
  void cancel();

 private:
  class Decoding;
  std::unique_ptr<Decoding> m_decoding;
};

}  // namespace korvel::platform
