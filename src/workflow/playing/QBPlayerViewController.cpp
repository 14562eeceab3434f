// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/playing/QBPlayerViewController.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "model/recorded/ConcertA.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/ChordStep.h"
#include "platform/midi/SoundFontFile.h"
#include "platform/sound/AudioSystem.h"
#include "platform/sound/SampleRate.h"
#include "workflow/playing/RecordedTime.h"
#include "workflow/recordings/RecordingSound.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

constexpr platform::Phrase kDeviceLost = platform::phrase(
    "Message", "the sound device is gone; choose another one or plug it in, and play again");

/// How late the end may be noticed, in seconds: steps are too far apart for fast playing.
constexpr double kWatch = 0.02;

/// So much later than the end of its recording a song's last chord may begin, in seconds, as
/// decoders differ about the end of a file. What rings on or fills its bar is not missed.
constexpr double kMostMissing = 0.5;
constexpr int kStepsOfBar = 4;

constexpr platform::Phrase kNotInStep = platform::phrase(
    "Message", "%1: its chords do not follow the recording, so the guitar plays alone");
constexpr platform::Phrase kPartsDiffer = platform::phrase(
    "Message",
    "%1: bars were taken out or put in at chord %2, where it differs from the recording");
constexpr platform::Phrase kTooShort = platform::phrase(
    "Message", "%1: the recording ends before the song; from there on the guitar plays alone");
constexpr platform::Phrase kGuitarAlone = platform::phrase("Message", "%1. The guitar plays alone");
constexpr platform::Phrase kGuitarGoesOn =
    platform::phrase("Message", "%1; the guitar goes on alone");

/// Indexes of the chords that bars begin with, among those of these positions.
std::vector<int> barsOf(QBSong& song, int from, int to) {
  std::vector<int> begins;
  const QBMeasure* bar = nullptr;
  int index = 0;
  for (const auto& chord : song.allChords()) {
    if (chord->position() < from || chord->position() > to) continue;
    const QBMeasure* of = chord->measure();
    if (index == 0 || (of ? of != bar : index % kStepsOfBar == 0)) begins.push_back(index);
    bar = of;
    ++index;
  }
  return begins;
}

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
  m_notice = {};
  m_recordedEnd.reset();
  if (m_sound.hasRecording()) {
    const RecordingSound found = openRecording(song, Proof::atOnce);
    m_recording = found.sound;
    if (!found.sound) m_notice = platform::UserText(kGuitarAlone, found.problem);
  }
  fill(song);
  m_first = static_cast<int>(std::ranges::count_if(
      song.allChords(), [&](const auto& chord) { return chord->position() < m_range.from; }));
  m_shown = -1;
  m_timer = platform::RunLoop::main().scheduleRepeating(kSecondsOfChord, [this] { playHandler(); });
  m_watch = platform::RunLoop::main().scheduleRepeating(kWatch, [this] { lookForEnd(); });
  start();
  m_session.lockTab(true);
  if (!m_notice.empty()) m_controls.showNotice(m_notice);
}

/// Strict tempo is of no use beside a recording, which has its own.
void QBPlayerViewController::fill(QBSong& song) {
  const bool strict = m_strict && !m_recording;
  auto player = m_newPlayer();
  if (player && m_sound.recordedPitch) player->tune(recordedCentsOf(song));
  m_midi = std::make_unique<QBMIDIPlayer>(
      song, std::move(player), strict ? SongTime::Tempo::strict : SongTime::Tempo::asRecorded);
  m_midi->setPart(m_sound.silent);
  m_midi->setPartHeard(false);
  m_midi->scan(m_range.from, m_range.to);
  m_midi->addMetronome(m_range.from, m_range.to);
  const bool clicksBetween = m_loops && m_sound.rounds.between == BetweenRounds::clicks;
  if (m_countIn || clicksBetween) m_midi->addCountIn(m_range.from);
  m_midi->setMetronome(m_metronome);
  m_midi->setClickVolume(m_clickVolume);
  addRecording(song);
}

void QBPlayerViewController::addRecording(QBSong& song) {
  if (m_recording && !m_midi->hasRecordedTimes()) {
    m_recording = nullptr;
    m_notice = platform::UserText(kNotInStep, song.title());
  } else if (const auto chord = m_recording ? firstOutOfStep(song) : std::nullopt) {
    m_notice = platform::UserText(kPartsDiffer, song.title(), *chord + 1);
  }
  m_isRecorded = m_recording != nullptr;
  const bool hasDeck = m_recording || (m_loops && m_sound.hasRounds());
  if (hasDeck)
    m_midi->addRecording(m_recording, m_loops ? std::optional(m_sound.rounds) : std::nullopt);
  else if (m_loops)
    m_midi->turnBackAtEnd();
  m_midi->setPitch(m_sound.cents);
  m_midi->setLevels(m_recording ? m_sound.levels() : platform::DeckLevels{0, 1, false});
}

/// What plays along is to begin at the place where it is heard first.
void QBPlayerViewController::start() {
  if (m_midi->hasDeck()) {
    m_midi->setPlaybackRate(m_controls.rate());
    m_midi->goToBeginning();
  }
  if (!m_midi->start()) throw platform::AudioError(m_midi->problem());
  if (m_midi->hasDeck()) return;
  m_midi->setPlaybackRate(m_controls.rate());
  m_midi->goToBeginning();
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
  if (m_recording && m_recording->isWhole()) lookAtRecording();
  if (m_recordedEnd) setLevels();
  if (m_loops && m_midi->isPastChords())
    m_midi->rewind();
  else if (!m_loops && m_midi->isOver())
    end({});
}

/// Once all of it has been decoded, or what there was of it.
void QBPlayerViewController::lookAtRecording() {
  const auto sound = std::exchange(m_recording, nullptr);
  const double seconds = static_cast<double>(sound->frames()) / platform::kSampleRate;
  const auto last = m_midi->times().recordedSecondsAt(m_midi->times().lastStruck());
  platform::UserText problem = sound->problem();
  if (!problem.empty()) problem = platform::UserText(kGuitarGoesOn, problem);
  if (problem.empty() && last && *last > seconds + kMostMissing)
    problem = platform::UserText(kTooShort, m_song->title());
  if (problem.empty()) return;
  m_notice = problem;
  m_recordedEnd = seconds;
  m_controls.showNotice(problem);
}

/// Behind the end of a recording that ends too early the guitar is heard in any case.
void QBPlayerViewController::setLevels() {
  platform::DeckLevels levels = m_sound.levels();
  const auto second = m_midi->recordedSeconds();
  if (m_recordedEnd && second && *second >= *m_recordedEnd) levels.guitar = 1;
  m_midi->setLevels(levels);
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
  m_recording = nullptr;
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

void QBPlayerViewController::setSound(const PlayedSound& sound) {
  const bool mutesOthers = sound.silent != m_sound.silent;
  const bool isRetuned = sound.recordedPitch != m_sound.recordedPitch;
  m_sound = sound;
  if (!m_midi) return;
  if (mutesOthers || isRetuned || (sound.hasRecording() && !m_isRecorded && m_notice.empty()))
    return replay();
  m_midi->setPitch(sound.cents);
  if (m_isRecorded) setLevels();
}

/// What it has to be filled anew for goes on with the chord that was heard. In steps a place is
/// that of the chord before it, and the last one has none.
void QBPlayerViewController::replay() {
  int index = m_midi->playbackPosition();
  if (index < 0 && !m_loops) index = m_shown;
  const int ahead = m_song->isOnBeats() ? 0 : 1;
  end({});
  play();
  if (m_midi && index > 0) m_midi->setPlaybackPosition(index + ahead);
}

void QBPlayerViewController::skipBars(int bars) {
  if (!m_midi) return;
  const std::vector<int> begins = barsOf(*m_song, m_range.from, m_range.to);
  const int now = std::max(m_midi->playbackPosition(), 0);
  const auto bar = std::ranges::upper_bound(begins, now) - begins.begin() - 1;
  const auto last = std::ssize(begins) - 1;
  if (last < 0) return;
  const auto wanted = std::clamp<std::ptrdiff_t>(bar + bars, 0, last);
  m_midi->setPlaybackPosition(begins[static_cast<std::size_t>(wanted)]);
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
