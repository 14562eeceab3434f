// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "platform/media/MediaAsset.h"

namespace korvel::platform {

/// Decodes one track of a media file to be played: two channels of 16 bits, interleaved, at
/// kSampleRate, once: start, then next until it is empty. Sample n is of the same moment as sample
/// n of MonoReader. One channel is heard on both sides; of more than two every second one on each.
class StereoReader {
 public:
  /// Opens the file anew. Throws MediaError as MonoReader does.
  StereoReader(const MediaAsset& asset, const MediaTrack& track);
  StereoReader(const StereoReader&) = delete;
  StereoReader& operator=(const StereoReader&) = delete;
  ~StereoReader();

  /// False when the decoder refuses the track. To be called once.
  bool start();
  /// The next samples, some thousand frames; empty at the end. Valid until the next call.
  std::span<const std::int16_t> next();
  /// Whether the end came because the file could not be read any further.
  bool hasFailed() const;

 private:
  class Decoding;
  std::unique_ptr<Decoding> m_decoding;
};

}  // namespace korvel::platform
