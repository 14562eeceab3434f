// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "ui/roll/RollNotes.h"
#include "ui/roll/RollScale.h"
#include "ui/views/Shades.h"
#include "workflow/editing/drawn/ToneIndex.h"

class QPainter;

namespace korvel::ui {

/// Paints the tones of a roll: the louder the stronger the shade, the less probable the more
/// transparent, doubtful ones with a dashed outline. Candidates are hollow and dotted, and a corner
/// marks what the user has decided.
class TonePainter {
 public:
  /// What is handed in has to stay.
  TonePainter(const ToneRoll& roll, const RollNotes& notes, const RollScale& scale,
              const Shades& shades)
      : m_roll(roll), m_notes(notes), m_scale(scale), m_shades(shades) {}

  /// Of what is in the chords [first, end).
  void paint(QPainter& painter, int first, int end, std::span<const ToneIndex> chosen) const;

 private:
  void paintCandidates(QPainter& painter, int first, int end) const;
  void paintNarrow(QPainter& painter, int first, int end) const;
  void paintTone(QPainter& painter, const ToneRoll::Tone& tone, const RollNotes::Sign& sign,
                 bool isChosen) const;
  void paintHead(QPainter& painter, const QRectF& head, bool active) const;
  void paintLock(QPainter& painter, const QRectF& head) const;

  const ToneRoll& m_roll;
  const RollNotes& m_notes;
  const RollScale& m_scale;
  const Shades& m_shades;
};

}  // namespace korvel::ui
