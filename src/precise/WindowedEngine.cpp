// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/WindowedEngine.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace korvel::precise {
namespace {

/// The note of the pitch that sounds before and after that time.
auto soundingThrough(const std::vector<Note>& notes, int pitch, double time) {
  return std::ranges::find_if(notes, [&](const Note& note) {
    return note.pitch == pitch && note.onset < time && note.end > time;
  });
}

}  // namespace

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
  if (m_begin == 0) m_found.tuningOffset = window.tuningOffset;
  extendCutNotes(window);
  extendCutDoubts(window);
  const auto frames = static_cast<Frame>(window.frames);
  const Frame seam = m_begin + (isFull() ? seamOf(window) : frames);
  const auto belongs = [&](const Note& note) {
    const Frame onset = m_begin + frameAt(note.onset);
    return onset >= m_seam && onset < seam;
  };
  for (const Note& note : window.notes) {
    if (!belongs(note)) continue;
    if (isFull() && frameAt(note.end) == frames) m_cut.push_back(m_found.notes.size());
    m_found.curves.add(window, note, m_begin);
    m_found.notes.push_back(inRecording(note));
  }
  for (const Note& note : window.doubtful)
    if (belongs(note)) m_found.doubtful.push_back(inRecording(note));
  dropWhatIsNote();
  m_seam = seam;
  m_found.frames = m_begin + frames;
}

Note WindowedEngine::inRecording(Note note) const {
  const double earlier = static_cast<double>(m_begin) / kFramesPerSecond;
  note.onset += earlier;
  note.end += earlier;
  return note;
}

/// What one window doubts may be a note to the other, on its side of the seam.
void WindowedEngine::dropWhatIsNote() {
  const double begin = static_cast<double>(m_begin) / kFramesPerSecond;
  const double end = static_cast<double>(m_begin + kOverlapFrames) / kFramesPerSecond;
  const auto meet = [&](const Note& note) { return note.end > begin && note.onset < end; };
  std::vector<Note> sure;
  std::ranges::copy_if(m_found.notes, std::back_inserter(sure), meet);
  std::erase_if(m_found.doubtful, [&](const Note& doubtful) {
    return meet(doubtful) && std::ranges::any_of(sure, [&](const Note& note) {
             return note.pitch == doubtful.pitch && note.onset < doubtful.end &&
                    note.end > doubtful.onset;
           });
  });
}

/// What still sounded at the end of the window before ends when this one says so.
void WindowedEngine::extendCutNotes(const Analysis& window) {
  for (const std::size_t cut : std::exchange(m_cut, {})) {
    Note& note = m_found.notes[cut];
    const double end = note.end - static_cast<double>(m_begin) / kFramesPerSecond;
    const auto later = soundingThrough(window.notes, note.pitch, end);
    if (later == window.notes.end()) continue;
    const Frame newEnd = m_begin + frameAt(later->end);
    m_found.curves.extend(cut, window, note.pitch, m_begin, newEnd);
    note.end = static_cast<double>(newEnd) / kFramesPerSecond;
    if (newEnd == m_begin + static_cast<Frame>(window.frames)) m_cut.push_back(cut);
  }
}

/// The same for what is doubted, which no blocks are made of.
void WindowedEngine::extendCutDoubts(const Analysis& window) {
  for (Note& note : m_found.doubtful) {
    if (frameAt(note.end) != m_found.frames) continue;
    const double end = note.end - static_cast<double>(m_begin) / kFramesPerSecond;
    const auto later = soundingThrough(window.doubtful, note.pitch, end);
    if (later != window.doubtful.end()) note.end = inRecording(*later).end;
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
