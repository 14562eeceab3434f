// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/chords/QBChordAnalyserStandard.h"

#include "analysis/spectrum/QBFFT.h"
#include "matrix/CellText.h"
#include "model/instruments/QBTuning.h"
#include "model/recorded/QBBlock.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"

namespace korvel {
namespace {

/// A tone that no place plays is entered on the lowest open string: its empty matrix reads as
/// zeros. Filters count on finding it there.
void addTone(QBHold& hold, const QBFrequency& frequency) {
  int fret = 0;
  int string = 0;
  if (const QBFloatMatrix* places = frequency.matrix()) {
    const int row = places->getMinimumFretLine();
    fret = truncated(places->getFloat(kFretColumn, row));
    string = truncated(places->getFloat(kStringColumn, row));
  }
  hold.addTone(string, fret, frequency.amplitude());
}

}  // namespace

QBChord* QBChordAnalyserStandard::nextChord(QBSong* song) {
  const std::shared_ptr<QBFFT> spectrum = nextFFT();
  if (!spectrum) return nullptr;
  const auto frequencies = spectrum->frequencies(m_tuning());
  if (frequencies.empty()) return nullptr;
  QBChord* chord = QBTabMgr::of(*song).createChord(song, spectrum, spectrum->timestamp());
  chord->setBlock(spectrum->block());
  for (const QBFrequency& frequency : frequencies) addTone(*chord->hold(), frequency);
  chord->setM_fft(nullptr);
  return chord;
}

}  // namespace korvel
