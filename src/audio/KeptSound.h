// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "audio/QBSampleSource.h"
#include "platform/media/MonoMixer.h"

namespace korvel {

/// A recording that is kept in memory as it comes in, to be heard as a whole once it is over: one
/// channel of 16 bits at any rate. It may be read by another thread than that which keeps it, while
/// every thread may ask how far it is, and stop it.
class KeptSound final : public QBSampleSource {
 public:
  /// rate: samples a second, above 0.
  explicit KeptSound(int rate);

  /// Appends the next samples of the recording; not to be called while it is read.
  void keep(std::span<const std::int16_t> samples);

  /// Reads from the beginning again. The volume has no meaning here.
  void startRecord(float volume) override;
  std::span<const float> readSamples() override;
  bool eof() const override { return !isReading(); }
  bool isReading() const override { return m_reading && !m_stopped; }
  double progress() const override;
  void stopRecord() override { m_stopped = true; }

 private:
  int m_rate;
  platform::MonoMixer m_mixer;
  std::atomic<std::size_t> m_next = 0;
  std::vector<float> m_converted;
  std::atomic<bool> m_reading = false;
  std::atomic<bool> m_stopped = false;
};

}  // namespace korvel
