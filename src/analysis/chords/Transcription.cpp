// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/chords/Transcription.h"

#include <algorithm>
#include <utility>

#include "analysis/bands/BandChords.h"
#include "analysis/bands/BandPace.h"
#include "analysis/chords/TuningsToTry.h"
#include "audio/QBSampleSource.h"
#include "chords/SoloOrBand.h"
#include "music/ConcertPitch.h"
#include "platform/loop/Deadline.h"

namespace korvel {
namespace {

/// A part of the work, after which the time is looked at: seconds of sound, or events to finger.
constexpr double kSecondsOfPart = 0.25;
constexpr int kEventsOfPart = 50;
/// A step does no more parts than this, so that short recordings show progress too.
constexpr int kPartsOfStep = 20;
/// Reading a compressed file takes about this share of the time, and finding the notes that one.
constexpr double kShareOfReading = 0.25;
constexpr double kShareOfHearing = 0.6;
constexpr double kShareOfFingering = 0.05;
constexpr double kCentsOfHalfTone = 100;

/// In cents. The chords of a band are heard without it.
double expectedOffset(const HearingSettings& settings) {
  if (settings.players != Players::guitar || !(settings.concertA > 0)) return 0;
  return kCentsOfHalfTone * halfTonesAboveConcertA(settings.concertA);
}

}  // namespace

Transcription::Transcription(std::shared_ptr<QBSampleSource> source, const OpenPitches& open,
                             const HearingSettings& settings)
    : m_source(std::move(source)),
      m_engine(settings.sensitivity, expectedOffset(settings)),
      m_open(open),
      m_settings(settings),
      m_fingering(open, settings.fingering),
      m_players(settings.grid == Grid::beats ? settings.players : Players::guitar),
      m_wishes(settings.rhythm) {
  if (m_players != Players::guitar) m_ear.emplace(!settings.voices.empty());
}

bool Transcription::step() {
  const platform::Deadline deadline;
  for (int i = 0; i < kPartsOfStep && m_phase != Phase::done; ++i) {
    work();
    if (deadline.isOver()) break;
  }
  return m_phase != Phase::done;
}

void Transcription::work() {
  if (m_phase == Phase::reading) {
    read();
  } else if (m_phase == Phase::hearing) {
    hear();
  } else if (m_phase == Phase::fingering) {
    finger();
  } else {
    readRhythm();
  }
}

void Transcription::read() {
  const auto samples = m_source->readSamples();
  m_isRead = samples.empty();
  if (m_ear) m_ear->add(samples);
  m_isRead ? m_engine.finish() : m_engine.add(samples);
  m_samples += samples.size();
  if (m_isRead || m_engine.isFull()) m_phase = Phase::hearing;
}

/// Of a long recording the next window is read after this one, unless all is read already.
void Transcription::hear() {
  const bool isLast = !m_engine.isFull();
  if (m_engine.step(kSecondsOfPart)) return;
  m_heard = m_source->progress();
  if (!isLast) {
    m_phase = m_isRead || m_engine.isFull() ? Phase::hearing : Phase::reading;
    return;
  }
  m_result = m_engine.take();
  if (m_ear) decide();
  if (!m_isBand) findTuning();
  m_placing = m_fingering.placing(m_result.notes);
  m_phase = Phase::fingering;
}

void Transcription::decide() {
  m_sound = m_ear->take();
  m_ear.reset();
  m_isBand = m_players == Players::band ||
             (m_players == Players::automatic &&
              chords::isBand(chords::measuresOf(m_sound), surenessOf(m_result.notes)));
}

void Transcription::findTuning() {
  if (m_settings.tunings.empty()) return;
  // Who says where the A is knows better.
  const double offset = expectedOffset(m_settings) == 0 ? m_result.tuningOffset : 0;
  const auto found =
      fingering::otherTuning(m_open, tuningsToTry(m_open, m_settings.tunings, offset),
                             m_settings.fingering, m_result.notes);
  if (!found) return;
  m_otherTuning.emplace(FoundTuning{found->open});
  if (found->moved != 0) m_otherTuning->farA = offset + kCentsOfHalfTone * found->moved;
  if (m_settings.takesTuning) take(*found);
}

/// What was heard is read from the other A.
void Transcription::take(const fingering::Strings& found) {
  m_open = found.open;
  m_fingering = fingering::Fingering(m_open, m_settings.fingering);
  m_result.tuningOffset += kCentsOfHalfTone * found.moved;
  for (auto* notes : {&m_result.notes, &m_result.doubtful})
    for (fingering::Note& note : *notes) note.pitch -= found.moved;
}

void Transcription::finger() {
  for (int i = 0; i < kEventsOfPart; ++i) {
    if (m_placing.next()) continue;
    if (m_isBand)
      m_reader.emplace(withStrokes(m_result.notes, m_sound.strokes), m_wishes);
    else
      m_reader.emplace(m_result.notes, m_wishes);
    m_phase = Phase::rhythm;
    return;
  }
}

void Transcription::readRhythm() {
  if (m_reader->step()) return;
  m_rhythm = m_reader->take();
  m_reader.reset();
  if (!readsHalfAsFast()) m_phase = Phase::done;
}

bool Transcription::mayReadHalfAsFast() const { return m_isBand && !m_wishes.tempo; }

/// A band that was read twice as fast is read once more, by its drums.
bool Transcription::readsHalfAsFast() {
  if (!mayReadHalfAsFast() || m_isReadAgain) return false;
  if (!isReadTwiceAsFast(m_sound.strokes, m_rhythm.reading)) return false;
  m_isReadAgain = true;
  rhythm::Wishes slower = m_wishes;
  slower.tempo = m_rhythm.reading.tempo() / 2;
  m_reader.emplace(withStrokes(m_result.notes, m_sound.strokes), slower);
  return true;
}

double Transcription::progress() const {
  const double before = (kShareOfReading + kShareOfHearing) * m_heard;
  const double window = m_source->progress() - m_heard;
  switch (m_phase) {
    case Phase::reading:
      return before + kShareOfReading * window;
    case Phase::hearing:
      return before + (kShareOfReading + kShareOfHearing * m_engine.progress()) * window;
    case Phase::fingering:
      return kShareOfReading + kShareOfHearing + kShareOfFingering * m_placing.done();
    case Phase::rhythm:
      return kShareOfReading + kShareOfHearing + kShareOfFingering +
             (1 - kShareOfReading - kShareOfHearing - kShareOfFingering) * progressOfRhythm();
    default:
      return 1;
  }
}

/// What may be read twice keeps half of the share for that.
double Transcription::progressOfRhythm() const {
  if (!mayReadHalfAsFast()) return m_reader->progress();
  return ((m_isReadAgain ? 1 : 0) + m_reader->progress()) / 2;
}

}  // namespace korvel
