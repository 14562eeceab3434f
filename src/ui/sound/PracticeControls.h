// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "platform/persistence/Ref.h"
#include "workflow/playing/ToneRoll.h"

class QCheckBox;
class QSlider;
class QSpinBox;

namespace korvel {
class QBChord;
class QBSong;
}  // namespace korvel

namespace korvel::ui {

class PlayerBar;

/// What the practice panel has of the player: recording or guitar, the speed, clicks, and which
/// bars play in a loop. What the player's own controls show follows, and the other way round.
class PracticeControls final : public QWidget {
  Q_OBJECT

 public:
  /// The player outlives this.
  explicit PracticeControls(PlayerBar& player, QWidget* parent = nullptr);

  /// Its bars are looked for when they can be seen: in a long song that takes a moment.
  void setSong(QBSong* song);

 signals:
  /// From the one chord to the other, indexes in the song's `allChords`.
  void loopWanted(int first, int last);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* newMix();
  QWidget* newSpeed();
  QWidget* newLoop();
  void findBars();
  void showLoop();
  int barOf(const QBChord* chord, int otherwise) const;
  void loopBars();

  PlayerBar& m_player;
  platform::Ref<QBSong> m_song;
  bool m_isOld = false;  ///< The bars are those of another state, or another song.
  ToneRoll m_roll;
  QSpinBox* m_first = nullptr;
  QSpinBox* m_last = nullptr;
  QWidget* m_loop = nullptr;
};

}  // namespace korvel::ui
