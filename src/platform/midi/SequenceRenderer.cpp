// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/midi/SequenceRenderer.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvel::platform {
namespace {

constexpr std::size_t kMostHeld = 2048;  // 128 pitches on each of 16 channels
constexpr double kFastest = 1000;
constexpr double kNever = std::numeric_limits<double>::infinity();

std::int16_t sum(std::int16_t a, std::int16_t b) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(std::clamp<int>(a + b, Limits::min(), Limits::max()));
}

}  // namespace

SequenceRenderer::SequenceRenderer(Synthesizer& synthesizer) : m_synthesizer(synthesizer) {
  m_held.reserve(kMostHeld);
}

void SequenceRenderer::use(const MusicEvents& events) {
  m_events = events;
  locate();
}

void SequenceRenderer::setRate(double rate) {
  const double beatsPerFrame =
      (rate > 0 ? std::min(rate, kFastest) : 0.0) / Synthesizer::kSampleRate;
  if (beatsPerFrame == m_beatsPerFrame) return;
  anchorAt(position());
  m_beatsPerFrame = beatsPerFrame;
}

void SequenceRenderer::seek(double beat) {
  fadeOut();
  m_held.clear();
  anchorAt(beat);
  locate();
}

void SequenceRenderer::render(std::span<std::int16_t> samples) {
  std::span<std::int16_t> rest = samples;
  while (!rest.empty()) {
    turnBack();
    perform();
    const std::size_t frames = framesToNext(rest.size() / Synthesizer::kChannels);
    m_synthesizer.render(rest.first(frames * Synthesizer::kChannels));
    rest = rest.subspan(frames * Synthesizer::kChannels);
    m_frame += static_cast<std::int64_t>(frames);
  }
  addFade(samples);
}

double SequenceRenderer::frameOf(double beat) const {
  const double distance = beat - m_anchor;
  if (m_beatsPerFrame > 0) return std::round(distance / m_beatsPerFrame);
  return distance <= 0 ? 0 : kNever;
}

void SequenceRenderer::anchorAt(double beat) {
  m_anchor = beat;
  m_frame = 0;
}

/// Events of frames that were rendered are past.
void SequenceRenderer::locate() {
  for (m_next = 0; m_next < m_events.size(); ++m_next) {
    const MusicEvent& event = m_events[m_next];
    if (frameOf(event.time) >= static_cast<double>(m_frame)) return;
    if (const auto* change = std::get_if<MidiChannelMessage>(&event.message))
      m_synthesizer.channelMessage(*change);
  }
}

void SequenceRenderer::fadeOut() {
  m_synthesizer.render(m_fade);
  for (std::size_t i = 0; i < m_fade.size(); ++i)
    m_fade[i] = static_cast<std::int16_t>(m_fade[i] * static_cast<int>(m_fade.size() - i) /
                                          static_cast<int>(m_fade.size()));
  m_faded = 0;
  m_synthesizer.silence();
}

void SequenceRenderer::turnBack() {
  if (m_loop && isDue(m_loop->end)) goOnAt(m_loop->begin);
}

void SequenceRenderer::goOnAt(double beat) {
  for (const Held& held : m_held) m_synthesizer.noteOff(held.note);
  m_held.clear();
  anchorAt(beat);
  locate();
}

void SequenceRenderer::perform() {
  endNotes();
  for (; m_next < m_events.size() && isDue(m_events[m_next].time); ++m_next) {
    const MusicEvent& event = m_events[m_next];
    if (const auto* change = std::get_if<MidiChannelMessage>(&event.message))
      m_synthesizer.channelMessage(*change);
    else
      strike(std::get<MidiNoteMessage>(event.message), event.time);
  }
}

void SequenceRenderer::endNotes() {
  std::erase_if(m_held, [&](const Held& held) {
    const bool ends = isDue(held.end);
    if (ends) m_synthesizer.noteOff(held.note);
    return ends;
  });
}

/// A string that is struck again stops ringing first, and only its new end counts.
void SequenceRenderer::strike(const MidiNoteMessage& note, double time) {
  const auto same = std::ranges::find_if(m_held, [&](const Held& held) {
    return held.note.channel == note.channel && held.note.note == note.note;
  });
  if (same != m_held.end()) {
    m_synthesizer.noteOff(same->note);
    m_held.erase(same);
  }
  m_synthesizer.noteOn(note);
  m_held.push_back({note, time + note.duration});
}

/// At least one, so that a note too short for a frame sounds for one.
std::size_t SequenceRenderer::framesToNext(std::size_t most) const {
  double next = m_next < m_events.size() ? frameOf(m_events[m_next].time) : kNever;
  for (const Held& held : m_held) next = std::min(next, frameOf(held.end));
  if (m_loop) next = std::min(next, frameOf(m_loop->end));
  const double frames = next - static_cast<double>(m_frame);
  if (frames >= static_cast<double>(most)) return most;
  return frames > 1 ? static_cast<std::size_t>(frames) : 1;
}

void SequenceRenderer::addFade(std::span<std::int16_t> samples) {
  for (std::int16_t& sample : samples) {
    if (m_faded == m_fade.size()) return;
    sample = sum(sample, m_fade[m_faded++]);
  }
}

}  // namespace korvel::platform
