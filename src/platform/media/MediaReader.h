// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include "platform/media/MediaAsset.h"

namespace korvel::platform {

/// Decodes one track of a media file from its start, once: start, then next until it is empty.
/// The samples are interleaved 16-bit little-endian numbers at the track's own rate and channel
/// count, wherever in the file these change. Other sample formats are converted without dithering.
/// Encoder delay and padding that the file declares are left out. Damaged parts are skipped, and a
/// file that ends too early gives what is there.
class MediaReader {
 public:
  /// Opens the file anew. Throws MediaError when it has become unreadable or the track is no sound
  /// that can be decoded.
  MediaReader(const MediaAsset& asset, const MediaTrack& track);
  MediaReader(MediaReader&&) noexcept;
  MediaReader& operator=(MediaReader&&) noexcept;
  ~MediaReader();

  /// False when the decoder refuses the track. To be called once.
  bool start();
  /// The next bytes, about 64 KiB and whole frames; empty at the end, and before start or after
  /// cancel. Valid until the next call.
  std::span<const std::byte> next();
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
