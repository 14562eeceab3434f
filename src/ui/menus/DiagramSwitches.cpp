// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/menus/DiagramSwitches.h"

#include <QMenu>

#include "ui/desktop/Preferences.h"
#include "ui/views/FretboardView.h"
#include "ui/views/TablatureView.h"

namespace korvel::ui {

DiagramSwitches::DiagramSwitches(TablatureView& tablature, FretboardView& fretboard,
                                 QObject* parent)
    : QObject(parent), m_tablature(tablature), m_fretboard(fretboard) {
  m_tablature.showDiagrams(Preferences().showsDiagrams());
  setLeftHanded(Preferences().leftHanded());
}

void DiagramSwitches::addTo(QMenu& menu) {
  QAction* diagrams = menu.addAction(tr("Chord Diagrams"));
  diagrams->setCheckable(true);
  diagrams->setChecked(Preferences().showsDiagrams());
  connect(diagrams, &QAction::toggled, this, [this](bool on) {
    Preferences().setShowsDiagrams(on);
    m_tablature.showDiagrams(on);
  });
  QAction* leftHanded = menu.addAction(tr("Left-Handed Diagrams and Fretboard"));
  leftHanded->setCheckable(true);
  leftHanded->setChecked(Preferences().leftHanded());
  connect(leftHanded, &QAction::toggled, this, [this](bool on) {
    Preferences().setLeftHanded(on);
    setLeftHanded(on);
    emit leftHandedChanged(on);
  });
}

void DiagramSwitches::setLeftHanded(bool leftHanded) {
  m_tablature.setLeftHanded(leftHanded);
  m_fretboard.setLeftHanded(leftHanded);
}

}  // namespace korvel::ui
