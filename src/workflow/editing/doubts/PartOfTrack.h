// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

#include "audio/MonoTrack.h"

namespace korvel {

/// A part of a recording, as if it were all of it.
class PartOfTrack final : public QBSampleSource {
 public:
  /// from, to: the first sample, and the one behind the last, of platform::kSampleRate a second.
  PartOfTrack(std::filesystem::path file, std::size_t from, std::size_t to)
      : m_track(std::move(file)), m_from(from), m_to(to) {}

  void startRecord(float volume) override { m_track.startRecord(volume); }
  std::span<const float> readSamples() override;
  bool eof() const override { return !isReading(); }
  bool isReading() const override { return m_at < m_to && m_track.isReading(); }
  double progress() const override;
  void stopRecord() override { m_track.stopRecord(); }

 private:
  MonoTrack m_track;
  std::size_t m_from;
  std::size_t m_to;
  std::size_t m_at = 0;  ///< Samples that the track has handed out.
};

}  // namespace korvel
