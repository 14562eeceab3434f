// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/playing/QBPlayerViewController.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/ChordStep.h"
#include "platform/midi/SoundFontFile.h"
#include "platform/sound/AudioSystem.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

constexpr platform::Phrase kDeviceLost = platform::phrase(
    "Message", "the sound device is gone; choose another one or plug it in, and play again");

/// How late the end may be noticed, in seconds: steps are too far apart for fast playing.
constexpr double kWatch = 0.02;

std::string percentOf(float fraction) {
  constexpr float kMost = 999;
  char text[8];
  std::snprintf(text, sizeof text, "%3d",
                static_cast<int>(std::clamp(fraction * 100.0F, -kMost, kMost)));
  return text;
}

}  // namespace

QBPlayerViewController::QBPlayerViewController(QBSession& session, PlayerControls& controls,
                                               NewPlayer newPlayer)
    : m_session(session), m_controls(controls), m_newPlayer(std::move(newPlayer)) {}

QBPlayerViewController::~QBPlayerViewController() = default;

void QBPlayerViewController::play() {
  QBSong* song = m_session.activeSong();
  if (!song || m_midi) return;
  m_controls.lockMIDI();
  try {
    begin(*song);
  } catch (const platform::AudioError& error) {
    end(error.text());
  } catch (const platform::SoundFontError& error) {
    end(error.text());
  } catch (...) {
    end({});
    throw;
  }
}

QBPlayerViewController::Range QBPlayerViewController::rangeOf(QBSong& song) {
  return {song.fromChord() ? song.fromChord()->position() : 0,
          song.toChord() ? song.toChord()->position() : static_cast<int>(song.allChords().size())};
}

void QBPlayerViewController::begin(QBSong& song) {
  m_song = &song;
  m_range = rangeOf(song);
  m_loops = m_looping && (song.fromChord() || song.toChord());
  m_midi = std::make_unique<QBMIDIPlayer>(
      song, m_newPlayer(), m_strict ? SongTime::Tempo::strict : SongTime::Tempo::asRecorded);
  m_midi->scan(m_range.from, m_range.to);
  m_midi->addMetronome(m_range.from, m_range.to);
  if (m_countIn) m_midi->addCountIn(m_range.from);
  if (m_loops) m_midi->turnBackAtEnd();
  m_midi->setMetronome(m_metronome);
  m_midi->setClickVolume(m_clickVolume);
  m_first = static_cast<int>(std::ranges::count_if(
      song.allChords(), [&](const auto& chord) { return chord->position() < m_range.from; }));
  m_shown = -1;
  m_timer = platform::RunLoop::main().scheduleRepeating(kSecondsOfChord, [this] { playHandler(); });
  m_watch = platform::RunLoop::main().scheduleRepeating(kWatch, [this] { lookForEnd(); });
  if (!m_midi->start()) throw platform::AudioError(m_midi->problem());
  m_midi->setPlaybackRate(m_controls.rate());
  m_midi->goToBeginning();
  m_session.lockTab(true);
}

void QBPlayerViewController::playHandler() {
  if (m_midi->isLost()) return end(kDeviceLost);
  if (m_song->isDeleted()) return end({});
  const int index = m_midi->playbackPosition();
  if (index == -1) return;
  showPlace(index);
}

/// The place is that of the chord which begins, and the range is counted without one of its ends,
/// so that the last chord of a loop lies beyond it. The mark in the tablature depends on that.
void QBPlayerViewController::showPlace(int index) {
  m_shown = index;
  const int count = m_range.to - m_range.from;
  const float fraction = static_cast<float>(index + 1) / static_cast<float>(count);
  m_controls.showPosition(percentOf(std::min(m_midi->times().shareUntil(index, count), 1.0F)));
  if (m_session.activeSong() == m_song) m_session.setTabPosition(fraction);
}

void QBPlayerViewController::lookForEnd() {
  if (m_loops && m_midi->isPastChords())
    m_midi->rewind();
  else if (!m_loops && m_midi->isOver())
    end({});
}

void QBPlayerViewController::followSound() {
  if (!m_midi || m_midi->isLost() || m_song->isDeleted()) return;
  const int index = m_midi->playbackPosition();
  if (index != -1 && index != m_shown) showPlace(index);
}

double QBPlayerViewController::secondsHeard() const {
  return m_midi ? m_midi->times().secondsUntil(m_first + std::max(m_shown, 0)) : 0;
}

double QBPlayerViewController::secondsOfSong() const {
  return m_midi ? m_midi->times().secondsUntil(static_cast<int>(m_song->chords().size())) : 0;
}

std::optional<double> QBPlayerViewController::recordedSeconds() const {
  return m_midi ? m_midi->recordedSeconds() : std::nullopt;
}

void QBPlayerViewController::stop() {
  if (m_midi) end({});
}

void QBPlayerViewController::end(const platform::UserText& problem) {
  platform::UserText told = problem;
  if (m_midi) {
    m_midi->stop();
    if (told.empty() && m_midi->isLost()) told = kDeviceLost;
  }
  m_timer = nullptr;
  m_watch = nullptr;
  m_midi = nullptr;
  m_controls.unlockAll();
  m_session.lockTab(false);
  const platform::Ref<QBSong> song = std::exchange(m_song, nullptr);
  if (song && !song->isDeleted()) m_session.setActiveSong(song);
  if (!told.empty()) m_controls.showProblem(told);
}

void QBPlayerViewController::setMetronome(bool on) {
  m_metronome = on;
  if (m_midi) m_midi->setMetronome(on);
}

void QBPlayerViewController::setClickVolume(double factor) {
  m_clickVolume = factor;
  if (m_midi) m_midi->setClickVolume(factor);
}

void QBPlayerViewController::speedChanged() {
  m_controls.showSpeed(percentOf(m_controls.rate()));
  if (m_midi) m_midi->setPlaybackRate(m_controls.rate());
}

/// An undo may have changed what plays; what is seen must not be another song than what is heard.
void QBPlayerViewController::updateLoop() {
  if (m_midi && (m_song->isDeleted() || rangeOf(*m_song) != m_range)) stop();
  QBSong* active = m_session.activeSong();
  m_controls.showLoop(LoopRange(active));
  QBSong* timed = m_midi ? m_song.get() : active;
  m_controls.showTempo(timed ? beatsPerMinuteOf(*timed) : 0);
}

}  // namespace korvel
