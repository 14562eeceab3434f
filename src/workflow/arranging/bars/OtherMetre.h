// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBSong;

/// A song beside one on beats with its notes in bars of another metre, one after the other from the
/// first bar line on, without tablature. Notes last as many sixteenths as before, so that from
/// simple to compound time and back the beat is another note, the tempo with it, and triplets are
/// rounded; swing goes then. Chords without tones that went on at a bar line are joined again, and
/// new ones made at the new bar lines. std::domain_error for a metre without length.
QBSong* laidAnew(QBSong& song, int beat, int beattype, const std::string& title);

}  // namespace korvel
