// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/QBMIDIPlayer.h"

#include <algorithm>
#include <utility>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "music/ChordStep.h"
#include "music/Pitch.h"
#include "playback/Metronome.h"
#include "playback/MidiNote.h"
#include "playback/StepTimes.h"

namespace korvel {
namespace {

constexpr int kVelocity = 50;
constexpr int kReleaseVelocity = 20;
constexpr std::uint8_t kProgramChange = 0xC0;

}  // namespace

QBMIDIPlayer::QBMIDIPlayer(QBSong& song, std::unique_ptr<platform::MusicPlayer> player,
                           SongTime::Tempo tempo)
    : m_chords(song.allChords()),
      m_times(ChordTimes::of(song, tempo)),
      m_track(&m_sequence.newTrack()),
      m_player(std::move(player)) {
  if (m_player) m_player->setSequence(m_sequence);
}

// ---- the sequence

bool QBMIDIPlayer::playNote(int, int note, double duration) {
  return addNote(m_track, note, StepTimes::lengthOfSteps(duration));
}

bool QBMIDIPlayer::addNote(platform::MusicTrack* track, int note, double length) {
  if (note < 0 || note > kHighestNote) return false;
  platform::MidiNoteMessage message;
  message.note = static_cast<std::uint8_t>(note);
  message.velocity = kVelocity;
  message.releaseVelocity = kReleaseVelocity;
  message.duration = static_cast<float>(length);
  return track && track->addNote(m_timestamp, message);
}

platform::MusicTrack* QBMIDIPlayer::trackOf(const QBTone& tone) {
  if (!m_track || !m_part.contains(&tone)) return m_track;
  if (!m_partTrack) {
    m_partTrack = &m_sequence.newTrack();
    m_partTrack->setMuted(!m_partHeard);
  }
  return m_partTrack;
}

void QBMIDIPlayer::setPartHeard(bool heard) {
  m_partHeard = heard;
  if (m_partTrack) m_partTrack->setMuted(!heard);
}

QBChord& QBMIDIPlayer::playChord(QBChord& chord) {
  m_timestamp = m_times->goTo(chord);
  if (const QBHold* hold = chord.hold())
    for (const QBTone* tone : hold->tones())
      if (tone->isActive()) addNote(trackOf(*tone), toMIDI(*tone), m_times->lengthOf(*tone));
  return chord;
}

QBChord* QBMIDIPlayer::chordAtIndex(int index) const {
  const auto i = static_cast<std::size_t>(index);
  return index >= 0 && i < m_chords.size() ? m_chords[i].get() : nullptr;
}

int QBMIDIPlayer::first() {
  m_cursor = 0;
  QBChord* chord = chordAtIndex(m_cursor);
  if (!chord) return -1;
  playChord(*chord);
  return m_cursor;
}

int QBMIDIPlayer::next() {
  if (m_cursor < static_cast<int>(m_chords.size())) ++m_cursor;
  QBChord* chord = chordAtIndex(m_cursor);
  if (!chord) return -1;
  playChord(*chord);
  return m_cursor;
}

void QBMIDIPlayer::scanFull() {
  first();
  for (std::size_t i = 0; i < m_chords.size(); ++i) next();
}

void QBMIDIPlayer::scan(int from, int to) {
  m_loop = true;
  m_from = from;
  m_to = to;
  for (const auto& chord : m_chords)
    if (from <= chord->position() && chord->position() <= to) playChord(*chord);
}

void QBMIDIPlayer::addMetronome(int from, int to) {
  if (!m_clicks) m_clicks = &m_sequence.newTrack();
  addClicks(m_times->beats(from, to), *m_clicks);
}

void QBMIDIPlayer::setMetronome(bool heard) {
  if (m_clicks) m_clicks->setMuted(!heard);
}

void QBMIDIPlayer::setClickVolume(double factor) {
  for (platform::MusicTrack* track : {m_clicks, m_countIn})
    if (track) track->setVolume(factor);
}

void QBMIDIPlayer::addCountIn(int from) {
  if (!m_countIn) m_countIn = &m_sequence.newTrack();
  const auto beats = m_times->countIn(from);
  addClicks(beats, *m_countIn);
  m_leadIn = beats.empty() ? 0 : std::max(-beats.front().time, 0.0);
}

void QBMIDIPlayer::turnBackAtEnd() {
  const auto turn = m_times->turnOfLoop();
  m_turnsBack = m_player && turn;
  if (m_turnsBack) m_player->setLoop({*turn, m_times->endOfLoop()});
}

/// Clicks between the rounds are those of the count-in, and silence is as long as that would be. A
/// loop, and what clicks come before, is heard from its first chord on; a song from where it begins
/// to play.
platform::DeckPlan QBMIDIPlayer::deckPlan(const std::optional<RoundsOfLoop>& rounds) const {
  platform::DeckPlan plan;
  const double begin = m_times->turnOfLoop().value_or(kSecondsOfChord);
  if (rounds || m_leadIn > 0) plan.from = begin;
  if (const auto second = m_times->recordedSecondsAt(0)) plan.secondOfBeat0 = *second;
  if (!rounds || m_times->endOfLoop() <= begin) return plan;
  double again = begin;
  if (rounds->between == BetweenRounds::clicks) again = -m_leadIn;
  if (rounds->between == BetweenRounds::silence)
    if (const auto beats = m_times->countIn(m_from); !beats.empty())
      again = std::min(beats.front().time, begin);
  plan.to = m_times->endOfLoop();
  plan.rounds = platform::Rounds{begin, plan.to, again, rounds->ramp};
  return plan;
}

void QBMIDIPlayer::addRecording(std::shared_ptr<const platform::DecodedSound> sound,
                                const std::optional<RoundsOfLoop>& rounds) {
  if (!m_player) return;
  const platform::DeckPlan plan = deckPlan(rounds);
  m_turnsBack = plan.rounds.has_value();
  if (!hasRecordedTimes()) sound = nullptr;
  m_player->setDeck(std::make_unique<platform::Deck>(std::move(sound), plan));
}

void QBMIDIPlayer::setLevels(const platform::DeckLevels& levels) {
  if (m_player) m_player->setLevels(levels);
}

void QBMIDIPlayer::setPitch(double cents) {
  if (m_player) m_player->setPitch(cents);
}

bool QBMIDIPlayer::changeProgram(int program) {
  return m_track && program >= 0 && program <= kHighestNote &&
         m_track->addChannelEvent(0.0, {kProgramChange, static_cast<std::uint8_t>(program), 0});
}

// ---- playing

/// The program is changed only once the player runs: it takes an event of time 0 at any time.
bool QBMIDIPlayer::start() {
  if (!m_player) return false;
  try {
    m_player->preroll();
    m_player->start();
  } catch (const platform::AudioError& error) {
    m_problem = error.text();
    return false;
  }
  changeProgram(kProgram);
  return isPlaying();
}

bool QBMIDIPlayer::stop() {
  if (m_player) m_player->stop();
  if (m_track) m_sequence.disposeTrack(*std::exchange(m_track, nullptr));
  if (m_partTrack) m_sequence.disposeTrack(*std::exchange(m_partTrack, nullptr));
  if (m_clicks) m_sequence.disposeTrack(*std::exchange(m_clicks, nullptr));
  if (m_countIn) m_sequence.disposeTrack(*std::exchange(m_countIn, nullptr));
  return true;
}

bool QBMIDIPlayer::isPlaying() const { return m_player && m_player->isPlaying(); }

bool QBMIDIPlayer::isLost() const { return m_player && m_player->isLost(); }

void QBMIDIPlayer::goToBeginning() {
  if (m_player) m_player->setTime(-m_leadIn);
}

void QBMIDIPlayer::rewind() {
  if (m_player) m_player->setTime(0.0);
}

void QBMIDIPlayer::setPlaybackPosition(int index) {
  if (m_player) m_player->setTime(m_times->placeOf(index));
}

int QBMIDIPlayer::playbackPosition() const { return isPlaying() ? findIndex(m_player->time()) : 0; }

std::optional<double> QBMIDIPlayer::recordedSeconds() const {
  if (!isPlaying()) return {};
  return m_times->recordedSecondsAt(m_player->time());
}

void QBMIDIPlayer::setPlaybackRate(float rate) {
  if (m_player) m_player->setPlayRateScalar(rate);
}

bool QBMIDIPlayer::isOver() const {
  return m_player && m_player->time() >= std::max(m_sequence.length(), m_times->end());
}

bool QBMIDIPlayer::isPastChords() const {
  return m_player && !m_turnsBack && m_player->time() >= m_times->endOfLoop();
}

}  // namespace korvel
