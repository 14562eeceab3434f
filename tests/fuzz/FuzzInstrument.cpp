// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as an instrument definition file: the instrument made of them, used as in a recording,
// and written back.
#include <stdexcept>
#include <string>

#include "analysis/instrument/QBMusicXMLParser.h"
#include "analysis/instrument/ToneFilter.h"
#include "export/shelf/InstrumentXml.h"
#include "export/shelf/QBMusicXMLTag.h"
#include "fuzz/Fuzzing.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

void use(QBInstrument& instrument, QBChord& chord) {
  try {
    QBTabMgr::db().computeOffsets();
  } catch (const std::out_of_range&) {
    // an overtone on a string that the tuning has not got, which is reported like that
  }
  for (int string = 0; string < 6; ++string)
    filter(instrument, *instrument.findSpectrumByString(string), 2, chord);
  fuzz::require(toXML(instrument)->tags().size() == 8, "it is written with its six spectra");
  for (int string = 0; string < 6; ++string)
    instrument.findSpectrumByString(string)->cleanupTones();
}

/// Nothing was saved, so that the store is as it was afterwards.
void remove(QBInstrument& instrument) {
  for (const auto& spectrum : instrument.spectrums().snapshot()) {
    for (const auto& overtone : spectrum->overtones().snapshot())
      QBTabMgr::db().deleteOvertone(overtone);
    QBTabMgr::db().deleteSpectrum(spectrum);
  }
  QBTabMgr::db().deleteInstrumentAtIndex(0);
}

void readInstrument(const std::string& bytes) {
  static const test::StandardStore store;
  static QBChord* const chord = test::addChord(store.song("Song"), "222222");
  const std::string file = store.folder().file("instrument.xml");
  test::writeFile(file, bytes);
  fuzz::require(QBMusicXMLParser(QBTabMgr::db(), file).parse() == nullptr,
                "the instrument is in the store only");
  if (QBTabMgr::db().instruments().empty()) return;
  const platform::Ref<QBInstrument> instrument = QBTabMgr::db().findInstrumentByIndex(0);
  use(*instrument, *chord);
  remove(*instrument);
}

}  // namespace
}  // namespace korvel

int LLVMFuzzerInitialize(int*, char***) {
  korvel::fuzz::workInMemory();
  return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  korvel::readInstrument(std::string(bytes, bytes + size));
  return 0;
}
