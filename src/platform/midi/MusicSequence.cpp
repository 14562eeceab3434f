// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/midi/MusicSequence.h"

#include <algorithm>
#include <tuple>

namespace korvel::platform {
namespace {

/// By time, channel events first, then by channel and pitch, the longest of one pitch first.
/// Channel events of one time stay in the order in which they were added.
bool before(const MusicEvent& a, const MusicEvent& b) {
  const auto* noteA = std::get_if<MidiNoteMessage>(&a.message);
  const auto* noteB = std::get_if<MidiNoteMessage>(&b.message);
  if (a.time != b.time || !noteA || !noteB)
    return std::tuple(a.time, noteA != nullptr) < std::tuple(b.time, noteB != nullptr);
  return std::tuple(noteA->channel, noteA->note, -noteA->duration) <
         std::tuple(noteB->channel, noteB->note, -noteB->duration);
}

bool beginTogether(const MusicEvent& a, const MusicEvent& b) {
  const auto* noteA = std::get_if<MidiNoteMessage>(&a.message);
  const auto* noteB = std::get_if<MidiNoteMessage>(&b.message);
  return noteA && noteB && a.time == b.time && noteA->channel == noteB->channel &&
         noteA->note == noteB->note;
}

}  // namespace

MusicTrack& MusicSequence::newTrack() {
  m_tracks.push_back(std::make_unique<MusicTrack>([this] { changed(); }));
  return *m_tracks.back();
}

void MusicSequence::disposeTrack(const MusicTrack& track) {
  std::erase_if(m_tracks, [&](const auto& each) { return each.get() == &track; });
  changed();
}

MusicEvents MusicSequence::events() const {
  MusicEvents all;
  for (const auto& track : m_tracks) {
    const auto sounding = track->sounding();
    all.insert(all.end(), sounding.begin(), sounding.end());
  }
  std::ranges::stable_sort(all, before);
  all.erase(std::unique(all.begin(), all.end(), beginTogether), all.end());
  return all;
}

double MusicSequence::length() const {
  double end = 0;
  for (const auto& track : m_tracks)
    for (const MusicEvent& event : track->events())
      if (const auto* note = std::get_if<MidiNoteMessage>(&event.message))
        end = std::max(end, event.time + note->duration);
  return end;
}

void MusicSequence::changed() const {
  if (m_listener) m_listener();
}

}  // namespace korvel::platform
