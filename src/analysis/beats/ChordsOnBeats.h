// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "analysis/beats/HeardSound.h"
#include "analysis/beats/WrittenChords.h"
#include "analysis/chords/ChordSupply.h"
#include "platform/persistence/Ref.h"

namespace korvel {

class QBMeasure;

/// The written chords of what was heard, whose pitch classes are told, in measures, with the names
/// of the spans that they lie in. With the first one the song gets tempo, swing and key.
class ChordsOnBeats final : public ChordSupply {
 public:
  explicit ChordsOnBeats(const HeardSound& heard);
  /// A voice of what was heard in its place, in the same bars.
  ChordsOnBeats(const HeardSound& heard, const HeardVoice& voice);
  ~ChordsOnBeats() override;

  std::size_t size() const override { return m_chords.size(); }
  QBChord* make(QBSong* song) override;

 private:
  void begin(QBSong& song) const;
  void layIntoMeasure(QBSong& song, const WrittenChord& written, QBChord& chord);
  void name(const WrittenChord& written, QBChord& chord) const;

  double m_tempo;
  rhythm::Reading m_reading;  ///< Without its notes.
  std::vector<WrittenChord> m_chords;
  std::size_t m_next = 0;
  platform::Ref<QBMeasure> m_measure;
};

}  // namespace korvel
