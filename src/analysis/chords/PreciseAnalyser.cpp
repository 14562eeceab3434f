// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/chords/PreciseAnalyser.h"

#include <chrono>
#include <utility>

#include "analysis/beats/ChordsOnBeats.h"
#include "analysis/chords/BlockChords.h"
#include "analysis/chords/Listening.h"
#include "audio/QBSampleSource.h"
#include "model/instruments/QBTuning.h"

namespace korvel {
namespace {

/// Short enough to show how far it is.
constexpr std::chrono::milliseconds kPatience{20};
/// Of the time; the rest goes into making chords.
constexpr double kShareOfListening = 0.95;

}  // namespace

PreciseAnalyser::PreciseAnalyser(std::shared_ptr<QBSampleSource> source, QBTuning* tuning,
                                 const HearingSettings& settings, platform::Workers::Turn turn)
    : QBChordAnalyser(std::move(source), tuning),
      m_open(tuning ? tuning->openStrings().pitches() : kStandardPitches),
      m_settings(settings),
      m_turn(turn) {}

PreciseAnalyser::PreciseAnalyser(std::shared_ptr<Listening> listening, QBTuning* tuning)
    : QBChordAnalyser(nullptr, tuning), m_listening(std::move(listening)) {}

PreciseAnalyser::~PreciseAnalyser() = default;

QBChord* PreciseAnalyser::nextChord(QBSong* song) {
  if (!m_chords) {
    listen();
    return nullptr;
  }
  if (atEnd()) return nullptr;
  ++m_made;
  return m_chords->make(song);
}

void PreciseAnalyser::listen() {
  if (m_chords) return;
  if (!m_listening && !m_source()) {
    m_chords = std::make_unique<BlockChords>(std::vector<precise::BlockTones>{});
    return;
  }
  if (!m_listening)
    m_listening = std::make_shared<Listening>(m_source(), m_open, m_settings, m_turn);
  if (!m_listening->isOver()) return;
  const auto listened = std::exchange(m_listening, nullptr);
  Listening::Heard all = listened->take();
  m_heard = std::move(all.sound);
  if (all.grid == Grid::beats)
    m_chords = std::make_unique<ChordsOnBeats>(*m_heard);
  else
    m_chords = std::make_unique<BlockChords>(std::move(all.blocks));
}

void PreciseAnalyser::wait() const {
  if (m_listening) m_listening->waitFor(kPatience);
}

bool PreciseAnalyser::cutShort() {
  if (m_chords) return false;
  listen();
  return m_listening && m_listening->cutShort();
}

void PreciseAnalyser::giveUp() { m_listening.reset(); }

bool PreciseAnalyser::atEnd() const { return m_chords && m_made == m_chords->size(); }

double PreciseAnalyser::progress() const {
  if (!m_chords) return m_listening ? kShareOfListening * m_listening->progress() : 0;
  if (atEnd()) return 1;
  const auto share = static_cast<double>(m_made) / static_cast<double>(m_chords->size());
  return kShareOfListening + (1 - kShareOfListening) * share;
}

}  // namespace korvel
