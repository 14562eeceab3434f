// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "tab/page/PageSource.h"

namespace korvel {

class ReadNames;

/// What the directives of a ChordPro file tell of the song as a whole, and of how its chords are
/// held.
class ReadFacts {
 public:
  /// names: hear how chords are held; they outlive this.
  explicit ReadFacts(ReadNames& names) : m_names(names) {}

  /// name: of the directive, in lower case letters; one that tells nothing of the song is passed
  /// over, and so is a value that is none.
  void tell(const std::string& name, std::string_view value);

  /// Without bars and chords; key as written, not as it sounds behind the capo.
  const PageSource& song() const { return m_song; }

 private:
  void tellKey(std::string_view value);
  void define(std::string_view value);

  ReadNames& m_names;
  PageSource m_song;
};

}  // namespace korvel
