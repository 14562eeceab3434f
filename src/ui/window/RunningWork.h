// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/dialogs/QuitQuestions.h"

class QWidget;

namespace korvel::ui {

class PlayerBar;
class RecordPanel;

/// What goes on in the window: playing, recordings and imports; and how it ends with the window.
class RunningWork {
 public:
  /// All outlive this. window: of the questions.
  RunningWork(PlayerBar& player, RecordPanel& record, QWidget& window)
      : m_player(player), m_record(record), m_window(window) {}

  /// Whether a new window would end anything.
  bool isBusy() const;
  /// In the preferences which imports run, so that the next start can tell, should this one be
  /// killed. Nothing once all has ended.
  void remember() const;
  /// Asks the user only where a recording or an import runs.
  Quitting askBeforeQuitting() const;
  /// What is to be heard at the next start is in the preferences then.
  void end(Quitting quitting);

 private:
  PlayerBar& m_player;
  RecordPanel& m_record;
  QWidget& m_window;
  bool m_isOver = false;  ///< What the next start goes on with is told already.
};

}  // namespace korvel::ui
