// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBChordVisitor.h"

#include "model/instruments/QBInstrument.h"
#include "model/songs/QBAlbum.h"

namespace korvel {

QBChordVisitor::QBChordVisitor() = default;

QBChordVisitor::~QBChordVisitor() = default;

void QBChordVisitor::execute(QBChord*, QBChord*, QBChord*) {}

QBInstrument* QBChordVisitor::m_instrument() const { return m_selectedInstrument; }

void QBChordVisitor::setM_instrument(QBInstrument* instrument) {
  m_selectedInstrument = instrument;
}

QBAlbum* QBChordVisitor::m_album() const { return m_albumOfSong; }

void QBChordVisitor::setM_album(QBAlbum* album) { m_albumOfSong = album; }

}  // namespace korvel
