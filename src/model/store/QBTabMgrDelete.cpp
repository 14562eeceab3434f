// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "model/recorded/QBBlock.h"
#include "model/recorded/QBSample.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/QBTabMgr.h"

namespace korvel {

void QBTabMgr::deleteInstance(platform::ManagedObject* object) {
  if (object) m_context->remove(*object);
}

void QBTabMgr::deleteAlbum(QBAlbum* album) {
  for (const auto& song : album->songs().snapshot()) deleteSong(song);
  const platform::Ref<QBAlbum> keep(album);
  std::erase_if(m_albums, [&](const auto& other) { return other.get() == album; });
  deleteInstance(album);
}

void QBTabMgr::deleteSong(QBSong* song) {
  if (!song) return;
  const auto chords = song->chords().snapshot();
  for (auto chord = chords.rbegin(); chord != chords.rend(); ++chord) deleteChord(*chord);
  deleteInstance(song);
}

void QBTabMgr::deleteChord(QBChord* chord) {
  deleteHold(chord->hold());
  deleteInstance(chord);
}

void QBTabMgr::deleteHold(QBHold* hold) {
  if (!hold) return;
  for (const auto& tone : hold->tones().snapshot()) deleteTone(tone);
  deleteInstance(hold);
}

void QBTabMgr::deleteTone(QBTone* tone) {
  tone->setHold(nullptr);
  deleteInstance(tone);
}

void QBTabMgr::deleteBlock(QBBlock* block) {
  const auto samples = block->samples().snapshot();
  block->setChord(nullptr);
  for (const auto& sample : samples) deleteInstance(sample);
  deleteInstance(block);
}

void QBTabMgr::deleteSpectrum(QBSpectrum* spectrum) {
  spectrum->setInstrument(nullptr);
  deleteInstance(spectrum);
}

void QBTabMgr::deleteOvertone(QBOvertone* overtone) {
  overtone->setSpectrum(nullptr);
  deleteInstance(overtone);
}

void QBTabMgr::deleteInstrumentAtIndex(std::size_t index) {
  const platform::Ref<QBInstrument> instrument = findInstrumentByIndex(index);
  m_instruments.erase(m_instruments.begin() + static_cast<std::ptrdiff_t>(index));
  deleteInstance(instrument);
}

}  // namespace korvel
