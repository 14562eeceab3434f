// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/songs/SongLyrics.h"
#include "platform/text/UserError.h"
#include "tab/page/PageSource.h"

namespace korvel {

/// Words for bars that a song has not. What is said tells the line and the bars that there are.
class NoPlaceForWords : public platform::UserError {
 public:
  using platform::UserError::UserError;
};

/// Words as they are typed or pasted: a line for each line of a page, which has four bars. "|" goes
/// on to the next bar, and a line of it alone leaves four bars without words; empty lines are
/// passed over. "9:" in front of a line places it at bar 9, "9+2.5:" that many beats behind its
/// bar line; the lines behind it follow on. Throws NoPlaceForWords.
std::vector<SungWords> readLyrics(std::string_view text, const PageSource& song);

/// The words of a song in that way, each line with its bar.
std::string lyricsText(const PageSource& song);

}  // namespace korvel
