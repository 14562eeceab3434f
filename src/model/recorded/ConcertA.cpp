// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/recorded/ConcertA.h"

#include <algorithm>
#include <cmath>

#include "model/recorded/SongRecording.h"
#include "model/songs/QBSong.h"
#include "music/ConcertPitch.h"

namespace korvel {
namespace {

/// What a store says may be anything.
constexpr double kMostCents = 1200;
constexpr double kCentsOfHalfTone = 100;

}  // namespace

double hertzOfA(double cents) { return hertzOfNote(kConcertA + cents / kCentsOfHalfTone); }

double recordedCentsOf(const QBSong& song) {
  const SongRecording* recording = song.recording();
  if (!recording || !std::isfinite(recording->tuningOffset())) return 0;
  return std::clamp(recording->tuningOffset(), -kMostCents, kMostCents);
}

double recordedAOf(const QBSong& song) { return hertzOfA(recordedCentsOf(song)); }

std::string concertAText(double cents) {
  return "A = " + std::to_string(std::lround(hertzOfA(cents))) + " Hz";
}

}  // namespace korvel
