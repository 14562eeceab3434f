// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QMenu;

namespace korvel::ui {

class FretboardView;
class TablatureView;

/// Whether shapes of chords are drawn, and for which hand: entries of a menu, remembered.
class DiagramSwitches final : public QObject {
  Q_OBJECT

 public:
  /// The views are shown accordingly from now on, and outlive this.
  DiagramSwitches(TablatureView& tablature, FretboardView& fretboard, QObject* parent);

  void addTo(QMenu& menu);

 signals:
  void leftHandedChanged(bool leftHanded);

 private:
  void setLeftHanded(bool leftHanded);

  TablatureView& m_tablature;
  FretboardView& m_fretboard;
};

}  // namespace korvel::ui
