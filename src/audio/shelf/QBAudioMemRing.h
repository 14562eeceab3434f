// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "audio/shelf/QBAudioMem.h"

namespace korvel {

/// The most recent 1.3 s of sound, for replay with a delay.
class QBAudioMemRing : public QBAudioMem {
 public:
  /// The size in bytes that a buffer without one gets, and of a piece of silence.
  static constexpr std::uint32_t kDefaultFill = 8192;

  /// Appends the buffer's bytes; the oldest are overwritten.
  void Push(const platform::QueueBuffer& buffer) override;
  /// Fills the buffer to its size: with the newest bytes at delay 0; otherwise from the delay's
  /// distance behind the newest byte, or, before the ring has wrapped for the first time, from
  /// where the last call ended.
  void Fill(platform::QueueBuffer& buffer);
  /// The delay in seconds, which count 44100 bytes each.
  void SetDelay(float seconds);
  void Reset() override;

 private:
  std::int32_t readPosition(std::uint32_t size) const;

  bool mFirstRun = true;  ///< The writer has not wrapped round yet.
  float mDelay = 0;
};

}  // namespace korvel
