// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "tab/page/PageSource.h"
#include "tab/page/SongPage.h"

namespace korvel {
class QBSong;
}

namespace korvel::ui {

/// Where on a page the chords of its song stand. A copy: later changes of the song do not reach it.
class PagePlaces {
 public:
  /// Indexes in the page; time: which one of those that the section is played.
  struct Place {
    int section;
    int time;
    int bar;
    int chord;

    bool operator==(const Place&) const = default;
  };
  struct Ticks {
    int first;
    int end;
  };

  PagePlaces() = default;
  /// The page is one of that source, which is the song's.
  PagePlaces(QBSong& song, const PageSource& source, const SongPage& page);

  /// Of a chord in `allChords`; none where the page does not show it.
  std::optional<Place> of(int chord) const;
  /// As words count them, of a bar each time that it is played.
  std::optional<Ticks> ticksOf(int section, int time, int bar) const;

 private:
  struct Bar {
    Place place;
    Ticks ticks;
    std::vector<int> chords;  ///< Ticks at which they begin.
  };
  std::vector<Bar> m_bars;   ///< By tick.
  std::vector<int> m_ticks;  ///< Of each of `allChords`.
};

}  // namespace korvel::ui
