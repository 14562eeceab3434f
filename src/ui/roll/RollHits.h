// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>
#include <QRectF>
#include <optional>
#include <vector>

#include "ui/roll/RollNotes.h"
#include "ui/roll/RollScale.h"
#include "workflow/editing/drawn/ToneIndex.h"

namespace korvel::ui {

/// What of a roll is at a place of its viewport.
class RollHits {
 public:
  struct Tone {
    std::size_t index;  ///< In the roll's tones.
    bool atEnd;         ///< Where it is made longer or shorter.
  };

  /// What is handed in has to stay.
  RollHits(const ToneRoll& roll, const RollNotes& notes, const RollScale& scale)
      : m_roll(roll), m_notes(notes), m_scale(scale) {}

  /// Columns of chords under the ruler.
  bool isInLanes(const QPointF& place) const;
  std::optional<Tone> toneAt(const QPointF& place) const;
  /// Index of the candidates.
  std::optional<std::size_t> candidateAt(const QPointF& place) const;
  std::vector<ToneIndex> tonesIn(const QRectF& area) const;
  /// The pitch of a lane.
  int pitchAt(double y) const;

  // How much of the room tones and candidates take.
  QRectF rectOf(const ToneRoll::Tone& tone) const;
  QRectF rectOf(const RollNotes::Candidate& candidate) const;

 private:
  const ToneRoll& m_roll;
  const RollNotes& m_notes;
  const RollScale& m_scale;
};

}  // namespace korvel::ui
