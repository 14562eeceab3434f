// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/deck/DecodedSound.h"
#include "platform/deck/Stretcher.h"

namespace korvel::platform {

/// One way through a recording: from a place on, at one speed and pitch. What is as recorded is
/// handed on untouched. One thread at a time.
class SoundRun {
 public:
  /// rate: 1 is the speed of the recording, > 0; pitch: a factor, 1 as recorded.
  struct Way {
    double rate = 1;
    double pitch = 1;
    bool operator==(const Way&) const = default;
  };

  explicit SoundRun(const DecodedSound& sound) : m_sound(sound) {}

  /// frame: of the recording; before its beginning and beyond its end is silence.
  void begin(double frame, const Way& way);
  const Way& way() const { return m_way; }
  /// Up to which frame the recording is read to take so many.
  std::int64_t readUntil(std::size_t frames) const;
  static std::int64_t readUntil(double frame, const Way& way, std::size_t frames);
  /// The next frames, interleaved.
  void take(std::span<float> samples);

 private:
  bool isAsRecorded() const { return m_way == Way(); }
  void feed();

  const DecodedSound& m_sound;
  Way m_way;
  std::int64_t m_next = 0;  ///< The frame that is read next.
  std::unique_ptr<Stretcher> m_stretcher;
  std::vector<float> m_read;
};

}  // namespace korvel::platform
