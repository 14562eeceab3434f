// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <vector>

#include "platform/persistence/Ref.h"

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QGridLayout;
class QLabel;
class QScrollArea;
class QSpinBox;

namespace korvel {
class QBSong;
}

namespace korvel::ui {

class FretboardView;
class PlayerBar;
class PracticeControls;

/// Where a song is practised: how its loop gets faster and what comes between, what is heard of
/// recording and guitar, which strings or voice are the player's own, and a large neck with the
/// chord that is heard and the next one ahead. Its keys are for who has a guitar in both hands, or
/// a pedal: Space plays and stops, left and right go by bars, as Page Up and Page Down do, up and
/// down change the speed. It has them once it is shown or clicked, and again behind Return in a
/// number.
class PracticePanel final : public QWidget {
  Q_OBJECT

 public:
  /// The player outlives this.
  explicit PracticePanel(PlayerBar& player, QWidget* parent = nullptr);

  void setSong(QBSong* song);
  /// Index in the song's `allChords` of the chord that is heard, or at the cursor; -1 for none.
  void showChord(int chord);

 signals:
  /// From the one chord to the other, indexes in the song's `allChords`.
  void loopWanted(int first, int last);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* newControls();
  QScrollArea* newColumn();
  QWidget* newNeck();
  void addRamp(QGridLayout& rows);
  void addSound(QGridLayout& rows);
  void addPart(QGridLayout& rows);
  QWidget* newStrings();
  void keepKeys();
  void showKeys();
  void showSound();
  void change();
  bool takeKey(const QKeyEvent& event);
  int chordAfter(int chord) const;
  int struckFrom(int chord) const;

  PlayerBar& m_player;
  platform::Ref<QBSong> m_song;
  PracticeControls* m_controls;
  QCheckBox* m_faster = nullptr;
  QSpinBox* m_from = nullptr;
  QSpinBox* m_step = nullptr;
  QSpinBox* m_rounds = nullptr;
  QComboBox* m_between = nullptr;
  QCheckBox* m_apart = nullptr;
  QDoubleSpinBox* m_transpose = nullptr;
  std::vector<QCheckBox*> m_strings;  ///< Those that are not heard.
  QComboBox* m_voice = nullptr;       ///< By the numbers of OwnVoice.
  FretboardView* m_neck;
  int m_chord = -1;  ///< That is heard, or at the cursor.
  QLabel* m_keys;
  QBoxLayout* m_columns = nullptr;  ///< Of the controls: beside each other where there is room.
  QScrollArea* m_column;
  bool m_showing = false;
};

}  // namespace korvel::ui
