// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/shelf/InstrumentXml.h"

#include "export/shelf/QBMusicXMLTag.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "model/instruments/QBString.h"
#include "platform/text/Numerals.h"

namespace korvel {

std::unique_ptr<QBMusicXMLTag> toXML(const QBInstrument& instrument) {
  auto tag = std::make_unique<QBMusicXMLTag>("Instrument", "");
  tag->addTag("Name", instrument.name());
  tag->addTag("DetailLevel", platform::decimalText(static_cast<double>(instrument.detaillevel())));
  for (const QBSpectrum* spectrum : instrument.spectrums()) tag->addTagObj(toXML(*spectrum));
  return tag;
}

std::unique_ptr<QBMusicXMLTag> toXML(const QBSpectrum& spectrum) {
  auto tag = std::make_unique<QBMusicXMLTag>("Spectrum", "");
  if (const QBString* described = spectrum.string()) tag->addTagObj(toXML(*described));
  for (const QBOvertone* overtone : spectrum.overtones()) tag->addTagObj(toXML(*overtone));
  return tag;
}

// "Amp" and "Offset", which the definition reader asks for, are left out on purpose: what is
// written here holds the instrument, and reading it back must not bring its overtones.
std::unique_ptr<QBMusicXMLTag> toXML(const QBOvertone& overtone) {
  auto tag = std::make_unique<QBMusicXMLTag>("Overtone", "");
  tag->addTag("OverString", std::to_string(overtone.string()));
  tag->addTag("OverFret", std::to_string(overtone.fret()));
  tag->addTag("OverNote", std::to_string(overtone.note()));
  tag->addTag("OverNmbOfHits", std::to_string(overtone.hits()));
  return tag;
}

std::unique_ptr<QBMusicXMLTag> toXML(const QBString& string) {
  auto tag = std::make_unique<QBMusicXMLTag>("String", "");
  tag->addTag("Order", std::to_string(string.order()));
  return tag;
}

}  // namespace korvel
