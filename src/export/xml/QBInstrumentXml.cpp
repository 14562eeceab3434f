// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/xml/QBMusicXMLTag.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "model/instruments/QBString.h"
#include "platform/text/Numerals.h"

namespace korvel {

std::unique_ptr<QBMusicXMLTag> QBInstrument::toXML() const {
  auto tag = std::make_unique<QBMusicXMLTag>("Instrument", "");
  tag->addTag("Name", name());
  tag->addTag("DetailLevel", platform::decimalText(static_cast<double>(detaillevel())));
  for (const QBSpectrum* spectrum : spectrums()) tag->addTagObj(spectrum->toXML());
  return tag;
}

std::unique_ptr<QBMusicXMLTag> QBSpectrum::toXML() const {
  auto tag = std::make_unique<QBMusicXMLTag>("Spectrum", "");
  if (const QBString* described = string()) tag->addTagObj(described->toXML());
  for (const QBOvertone* overtone : overtones()) tag->addTagObj(overtone->toXML());
  return tag;
}

// "Amp" and "Offset", which the definition reader asks for, are left out on purpose: what is
// written here holds the instrument, and reading it back must not bring its overtones.
std::unique_ptr<QBMusicXMLTag> QBOvertone::toXML() const {
  auto tag = std::make_unique<QBMusicXMLTag>("Overtone", "");
  tag->addTag("OverString", std::to_string(string()));
  tag->addTag("OverFret", std::to_string(fret()));
  tag->addTag("OverNote", std::to_string(note()));
  tag->addTag("OverNmbOfHits", std::to_string(hits()));
  return tag;
}

std::unique_ptr<QBMusicXMLTag> QBString::toXML() const {
  auto tag = std::make_unique<QBMusicXMLTag>("String", "");
  tag->addTag("Order", std::to_string(order()));
  return tag;
}

}  // namespace korvel
