// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/midi/MusicTrack.h"

namespace korvel::platform {

/// Tracks that are played together. May change while a player plays it. Main thread.
class MusicSequence {
 public:
  MusicSequence() = default;
  MusicSequence(const MusicSequence&) = delete;
  MusicSequence& operator=(const MusicSequence&) = delete;

  /// Stays until it is disposed of, or until the sequence's end.
  MusicTrack& newTrack();
  void disposeTrack(const MusicTrack& track);

  /// The events of all tracks that are not muted, as they can be played: of notes of one pitch that
  /// begin together on a channel only the longest.
  MusicEvents events() const;
  /// When the last note ends, in beats; 0 without notes.
  double length() const;

  /// Who plays the sequence hears when it changes; one listener.
  void onChanged(std::function<void()> listener) { m_listener = std::move(listener); }

 private:
  void changed() const;

  std::vector<std::unique_ptr<MusicTrack>> m_tracks;
  std::function<void()> m_listener;
};

}  // namespace korvel::platform
