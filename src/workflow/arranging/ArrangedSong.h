// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "model/songs/QBChordVisitor.h"
#include "workflow/library/QBNameMgr.h"

namespace korvel {

class QBSong;

// What arrangements are made of. Each of these makes a song beside its source, in the same album,
// under a title that is given, with the tablature drawn: std::out_of_range when there are no chords
// to draw, and the new song stays then. std::logic_error for a source that is in no album.

/// A copy with the visitor run over it.
QBSong* filtered(QBSong& source, const std::string& title, QBChordVisitor&& visitor);

/// A copy with a visitor of that class, made of these arguments, run over it.
template <class Visitor, auto... Arguments>
QBSong* filteredBy(QBSong& source, const std::string& title) {
  return filtered(source, title, Visitor(Arguments...));
}

/// An empty song in the source's tuning, without tablature; of one on beats with its rhythm and
/// key.
QBSong* emptyBeside(const QBSong& source, const std::string& title);
/// Runs the visitor over the source and draws what it made of it.
QBSong* filled(QBSong* made, QBSong& source, QBChordVisitor&& visitor);

/// A song that a visitor of that class, made for it, fills from the source.
template <class Visitor>
QBSong* rewrittenBy(QBSong& source, const std::string& title) {
  QBSong* made = emptyBeside(source, title);
  return filled(made, source, Visitor(made));
}

/// Gives a song that is made its title. The tablature's heading is the title, so it is drawn last.
QBSong* finished(QBSong* song, const std::string& title);

/// The key of a song whose tones were moved so far.
void moveKey(QBSong& song, int halfTones);

/// Whether any chord has a tone that is heard.
bool sounds(const QBSong& song);

/// Free names of songs that are derived from the song.
QBNameMgr nameOf(const QBSong& song);

}  // namespace korvel
