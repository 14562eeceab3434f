// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include "workflow/exchange/PieceImport.h"

class QComboBox;

namespace korvel::ui {

/// Which track of a file becomes a song, and of a MIDI file how its rhythm is taken.
class TrackDialog final : public QDialog {
  Q_OBJECT

 public:
  /// The piece has a track that can be chosen.
  TrackDialog(const QString& file, const exchange::Piece& piece, bool isMidi, QWidget* parent);

  /// Puts what was chosen into the choices.
  void tell(PieceChoices& choices) const;

 private:
  QComboBox* m_track;
  QComboBox* m_rhythm = nullptr;  ///< None for what was not played.
};

}  // namespace korvel::ui
