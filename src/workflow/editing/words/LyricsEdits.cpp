// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/words/LyricsEdits.h"

#include <utility>

#include "model/songs/QBSong.h"
#include "tab/page/LyricsText.h"
#include "tab/page/PageOfSong.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/SongInWork.h"

namespace korvel {
namespace {

const platform::Phrase kTitleOfLyrics = platform::phrase("UndoAction", "Change Lyrics");

void requireWhole(const QBSong& song) {
  if (SongInWork::is(song))
    throw EditRefused(
        platform::phrase("Message", "%1: is still being heard; edit it when that has ended"),
        song.title());
}

}  // namespace

void changeLyrics(QBSong& song, std::vector<SungWords> words) {
  requireWhole(song);
  Edit edit(song, kTitleOfLyrics);
  setLyrics(song, std::move(words));
  edit.done(platform::phrase("Log", "Lyrics changed."));
}

void typeLyrics(QBSong& song, std::string_view text) {
  changeLyrics(song, readLyrics(text, pageSourceOf(song)));
}

void changeWords(QBSong& song, int from, int to, const std::string& text) {
  std::vector<SungWords> words = lyricsOf(song);
  std::erase_if(words, [=](const SungWords& each) { return each.tick >= from && each.tick < to; });
  words.push_back({from, text});
  requireWhole(song);
  Edit edit(song, kTitleOfLyrics);
  edit.joinAlike();
  setLyrics(song, std::move(words));
  edit.save();
}

}  // namespace korvel
