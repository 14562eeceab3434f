// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/chords/PreciseAnalyser.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "analysis/chords/Listening.h"
#include "analysis/chords/Transcription.h"
#include "audio/QBSampleSource.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"

namespace korvel {
namespace {

using precise::BlockTone;
using precise::BlockTones;

/// Short enough to show how far it is.
constexpr std::chrono::milliseconds kPatience{20};
/// Of the time; the rest goes into making chords.
constexpr double kShareOfListening = 0.95;

/// Loudest first, as chords of a recording are.
void addTones(QBHold& hold, BlockTones tones) {
  std::ranges::stable_sort(tones, std::greater(), &BlockTone::amplitude);
  for (const BlockTone& tone : tones) hold.applyTone(tone.string, tone.fret, tone.amplitude);
}

const BlockTone* toneLike(const BlockTone& tone, const BlockTones& tones) {
  const auto found = std::ranges::find_if(tones, [&](const BlockTone& other) {
    return other.string == tone.string && other.fret == tone.fret;
  });
  return found == tones.end() ? nullptr : &*found;
}

/// A tone that rings on becomes softer from chord to chord, and one that is struck again does not:
/// this is what tells one from the other in a song. What is heard may differ a little, when tones
/// around it start or end.
void tellStrikesByAmplitude(std::vector<BlockTones>& blocks) {
  constexpr double kSofter = 0.999;
  for (std::size_t i = 1; i < blocks.size(); ++i)
    for (BlockTone& tone : blocks[i])
      if (const BlockTone* before = toneLike(tone, blocks[i - 1]))
        tone.amplitude = tone.struck ? std::max(tone.amplitude, before->amplitude)
                                     : std::min(tone.amplitude, kSofter * before->amplitude);
}

}  // namespace

PreciseAnalyser::PreciseAnalyser(std::shared_ptr<QBSampleSource> source, QBTuning* tuning,
                                 const precise::Settings& settings, platform::Workers::Turn turn)
    : QBChordAnalyser(std::move(source), tuning),
      m_open(tuning ? tuning->openStrings().pitches() : kStandardPitches),
      m_settings(settings),
      m_turn(turn) {}

PreciseAnalyser::PreciseAnalyser(std::shared_ptr<Listening> listening, QBTuning* tuning)
    : QBChordAnalyser(nullptr, tuning), m_listening(std::move(listening)) {}

PreciseAnalyser::~PreciseAnalyser() = default;

QBChord* PreciseAnalyser::nextChord(QBSong* song) {
  if (!m_blocks) {
    listen();
    return nullptr;
  }
  if (atEnd()) return nullptr;
  const std::size_t block = m_next++;
  const auto timestamp = static_cast<std::int64_t>(block * precise::kBlockSamples);
  QBChord* chord = QBTabMgr::db().createChord(song, nullptr, timestamp);
  addTones(*chord->hold(), (*m_blocks)[block]);
  return chord;
}

void PreciseAnalyser::listen() {
  if (!m_listening && !m_source()) m_blocks.emplace();
  if (m_blocks) return;
  if (!m_listening)
    m_listening = std::make_shared<Listening>(m_source(), m_open, m_settings, m_turn);
  if (!m_listening->isOver()) return;
  const auto heard = std::exchange(m_listening, nullptr);
  keepBlocks(heard->take().blocks);
}

void PreciseAnalyser::wait() const {
  if (m_listening) m_listening->waitFor(kPatience);
}

bool PreciseAnalyser::cutShort() {
  if (m_blocks) return false;
  listen();
  return m_listening && m_listening->cutShort();
}

void PreciseAnalyser::giveUp() { m_listening.reset(); }

/// Those from the first to the last that sounds.
void PreciseAnalyser::keepBlocks(std::vector<BlockTones> blocks) {
  m_blocks = std::move(blocks);
  tellStrikesByAmplitude(*m_blocks);
  const auto sounds = [](const BlockTones& tones) { return !tones.empty(); };
  while (!m_blocks->empty() && !sounds(m_blocks->back())) m_blocks->pop_back();
  const auto first = std::ranges::find_if(*m_blocks, sounds);
  m_first = m_next = static_cast<std::size_t>(first - m_blocks->begin());
}

bool PreciseAnalyser::atEnd() const { return m_blocks && m_next == m_blocks->size(); }

double PreciseAnalyser::progress() const {
  if (!m_blocks) return m_listening ? kShareOfListening * m_listening->progress() : 0;
  if (atEnd()) return 1;
  const auto done = static_cast<double>(m_next - m_first);
  const auto all = static_cast<double>(m_blocks->size() - m_first);
  return kShareOfListening + (1 - kShareOfListening) * done / all;
}

}  // namespace korvel
