// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <vector>

class QDialogButtonBox;
class QLabel;

namespace korvel::ui {

class PlayerBar;

/// Plays the song, and takes a beat each time that a key or its button is pressed.
class TapDialog final : public QDialog {
  Q_OBJECT

 public:
  /// The player outlives this; it still plays when this is closed.
  explicit TapDialog(PlayerBar& player, QWidget* parent = nullptr);

  /// In seconds of the recording, as they came.
  const std::vector<double>& taps() const { return m_taps; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void tap();

  PlayerBar& m_player;
  std::vector<double> m_taps;
  QLabel* m_count;
  QDialogButtonBox* m_buttons;
};

}  // namespace korvel::ui
