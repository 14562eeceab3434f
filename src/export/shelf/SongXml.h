// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

namespace korvel {

class QBChord;
class QBMusicXMLTag;
class QBSong;
class QBTone;

// What a song is made of as tags of a definition.

/// Fret and string.
std::unique_ptr<QBMusicXMLTag> toXML(const QBTone& tone);
/// The position with the tones of the hold, by string and fret.
std::unique_ptr<QBMusicXMLTag> toXML(const QBChord& chord);
/// The title alone.
std::unique_ptr<QBMusicXMLTag> toXML(const QBSong& song);

}  // namespace korvel
