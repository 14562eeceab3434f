// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

namespace korvel {

class QBInstrument;
class QBMusicXMLTag;
class QBOvertone;
class QBSpectrum;
class QBString;

// An instrument as its definition file has it, but for "Amp" and "Offset" of the overtones.

std::unique_ptr<QBMusicXMLTag> toXML(const QBInstrument& instrument);
std::unique_ptr<QBMusicXMLTag> toXML(const QBSpectrum& spectrum);
std::unique_ptr<QBMusicXMLTag> toXML(const QBOvertone& overtone);
std::unique_ptr<QBMusicXMLTag> toXML(const QBString& string);

}  // namespace korvel
