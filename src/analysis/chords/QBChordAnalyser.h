// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "audio/shelf/QBAudioMemRing.h"
#include "platform/persistence/Ref.h"

namespace korvel {

class QBChord;
class QBFFT;
class QBSampleSource;
class QBSong;
class QBTuning;

/// Turns a source of blocks into chords, one step for each block. Steps are independent of each
/// other; runs on the thread of its caller.
class QBChordAnalyser {
 public:
  /// The source may be set later.
  QBChordAnalyser(std::shared_ptr<QBSampleSource> source, QBTuning* tuning);
  QBChordAnalyser(const QBChordAnalyser&) = delete;
  QBChordAnalyser& operator=(const QBChordAnalyser&) = delete;
  virtual ~QBChordAnalyser();

  /// The spectrum of the next pending live block; none when there is no block.
  virtual std::shared_ptr<QBFFT> nextFFT();
  /// Stores the next chord into the song; none when no block is pending or nothing was heard in it.
  virtual QBChord* nextChord(QBSong* song);
  /// Whether no chord will come any more; a live source, which cannot know, always answers true.
  virtual bool atEnd() const;
  /// How much is done of what the source has, 0..1.
  virtual double progress() const;

  const std::shared_ptr<QBSampleSource>& m_source() const { return m_sampleSource; }
  void setM_source(std::shared_ptr<QBSampleSource> source) { m_sampleSource = std::move(source); }
  QBTuning* m_tuning() const { return m_pickTuning; }
  QBAudioMemRing& m_ring() { return m_replay; }

 private:
  std::shared_ptr<QBSampleSource> m_sampleSource;
  platform::Ref<QBTuning> m_pickTuning;
  QBAudioMemRing m_replay;  ///< For replay; the analysis does not write to it.
};

}  // namespace korvel
