// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QFont>
#include <QPen>
#include <optional>

#include "tab/layout/ChordGrip.h"
#include "ui/views/Shades.h"
#include "ui/views/neck/NeckPlaces.h"

class QPainter;

namespace korvel::ui {

class ChordWords;

/// Paints a neck with the grip of a chord on it, and that of the next one in frames. For one
/// painting; what is handed in has to stay.
class NeckPainter {
  Q_DECLARE_TR_FUNCTIONS(korvel::ui::NeckPainter)

 public:
  struct Shown {
    const ChordGrip* grip;  ///< Null for the bare neck.
    const ChordGrip* next;  ///< Null for none.
    std::optional<NeckPlaces::Cell> cursor;
  };

  /// words: of the tuning of the neck.
  NeckPainter(const NeckPlaces& neck, const ChordWords& words, const Shades& shades,
              const QFont& font)
      : m_neck(neck), m_words(words), m_shades(shades), m_font(font) {}

  void paint(QPainter& painter, const Shown& shown) const;

 private:
  void paintHeading(QPainter& painter, const ChordGrip& grip) const;
  void paintFrets(QPainter& painter) const;
  void paintInlays(QPainter& painter) const;
  void paintStrings(QPainter& painter) const;
  void paintMarks(QPainter& painter, const ChordGrip& grip) const;
  void paintTone(QPainter& painter, const ChordGrip::Tone& tone) const;
  void paintLabel(QPainter& painter, const ChordGrip::Tone& tone) const;
  void paintNextName(QPainter& painter, const ChordGrip& next) const;
  void paintNextTone(QPainter& painter, const ChordGrip::Tone& tone, const ChordGrip* grip) const;
  void paintCursor(QPainter& painter, const NeckPlaces::Cell& cell) const;
  QPen framePen() const;

  const NeckPlaces& m_neck;
  const ChordWords& m_words;
  const Shades& m_shades;
  QFont m_font;
};

}  // namespace korvel::ui
