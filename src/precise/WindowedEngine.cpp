// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/WindowedEngine.h"

#include <algorithm>
#include <utility>

namespace korvel::precise {

void WindowedEngine::begin(std::span<const float> samples) {
  m_engine.emplace(m_sensitivity, m_experience);
  m_seen = 0;
  m_next.clear();
  m_energyBefore = m_energyOfNext;
  feed(samples);
}

/// The end of the window is the beginning of the next, and so is what does not fit any more.
void WindowedEngine::feed(std::span<const float> samples) {
  const std::size_t room = kWindow - std::min(kWindow, m_seen);
  m_engine->addHalved(samples.first(std::min(room, samples.size())),
                      m_intake.energy() - m_energyBefore);
  const std::size_t before = kStride - std::min(kStride, m_seen);
  if (m_seen <= kStride) m_energyOfNext = m_intake.energy();
  const auto rest = samples.subspan(std::min(before, samples.size()));
  m_next.insert(m_next.end(), rest.begin(), rest.end());
  m_seen += samples.size();
}

bool WindowedEngine::step(double seconds) {
  if (m_engine->step(seconds)) return true;
  collect(m_engine->take());
  if (isFull()) {
    m_begin += static_cast<Frame>(kStride / kHop);
    begin(std::exchange(m_next, {}));
  }
  return false;
}

/// Of the notes that two windows hear, each gives those on its side of a seam.
void WindowedEngine::collect(const Analysis& window) {
  extendCutNotes(window);
  const auto frames = static_cast<Frame>(window.frames);
  const Frame seam = m_begin + (isFull() ? seamOf(window) : frames);
  const double earlier = static_cast<double>(m_begin) / kFramesPerSecond;
  for (const Note& note : window.notes) {
    const Frame onset = m_begin + frameAt(note.onset);
    if (onset < m_seam || onset >= seam) continue;
    if (isFull() && frameAt(note.end) == frames) m_cut.push_back(m_found.notes.size());
    m_found.curves.add(window, note, m_begin);
    Note& kept = m_found.notes.emplace_back(note);
    kept.onset += earlier;
    kept.end += earlier;
  }
  m_seam = seam;
  m_found.frames = m_begin + frames;
}

/// What still sounded at the end of the window before ends when this one says so.
void WindowedEngine::extendCutNotes(const Analysis& window) {
  for (const std::size_t cut : std::exchange(m_cut, {})) {
    Note& note = m_found.notes[cut];
    const double end = note.end - static_cast<double>(m_begin) / kFramesPerSecond;
    const auto later = std::ranges::find_if(window.notes, [&](const Note& each) {
      return each.pitch == note.pitch && each.onset < end && each.end > end;
    });
    if (later == window.notes.end()) continue;
    const Frame newEnd = m_begin + frameAt(later->end);
    m_found.curves.extend(cut, window, note.pitch, m_begin, newEnd);
    note.end = static_cast<double>(newEnd) / kFramesPerSecond;
    if (newEnd == m_begin + static_cast<Frame>(window.frames)) m_cut.push_back(cut);
  }
}

/// The frame of the window, in the middle of the overlap, that lies furthest from where notes
/// begin.
Frame WindowedEngine::seamOf(const Analysis& window) {
  constexpr auto kQuarter = static_cast<Frame>(kOverlap / kHop / 4);
  const Frame first = static_cast<Frame>(kStride / kHop) + kQuarter;
  Frame last = first;
  Window widest{first, first};
  const auto look = [&](Frame onset) {
    if (onset - last > widest.end - widest.begin) widest = {last, onset};
    last = onset;
  };
  for (const Note& note : window.notes)
    look(std::clamp(frameAt(note.onset), first, first + 2 * kQuarter));
  look(first + 2 * kQuarter);
  return (widest.begin + widest.end) / 2;
}

}  // namespace korvel::precise
