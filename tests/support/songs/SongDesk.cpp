// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/songs/SongDesk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iomanip>
#include <sstream>

#include "arrange/harmony/HarmonyOfChord.h"
#include "model/book/QBHarmony.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "model/store/QBSettings.h"
#include "model/store/QBTabMgr.h"
#include "platform/sqlite/Sqlite.h"
#include "support/sound/Guitar.h"
#include "support/store/StandardStore.h"
#include "tab/text/SongDrawing.h"
#include "workflow/hearing/QBCmdImportSong.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/QBSongNode.h"

namespace korvel::test {
namespace {

constexpr int kDurationAtFirst = 2;

std::string textOf(const QBTone& tone) {
  std::string text = std::to_string(tone.string()) + '/' + std::to_string(tone.fret());
  if (tone.duration() != kDurationAtFirst) text += '*' + std::to_string(tone.duration());
  return tone.isActive() ? text : '(' + text + ')';
}

template <class Songs>
std::vector<std::string> titlesOf(const Songs& songs) {
  std::vector<std::string> titles;
  for (const auto& song : songs) titles.push_back(song->title());
  return titles;
}

}  // namespace

SongDesk::SongDesk() {
  QBTabMgr::clearDb();
  QBTabMgr::setStorePath(m_folder.file("Korvel.sqlite"));
  SessionViews views = QBSession::session().views();
  views.savePanel = this;
  QBSession::session().attach(views);
  QBTabMgr::db().createAlbum("Album", false);
  QBTabMgr::db().selectedSettings()->setWorkDir(m_folder.file(""));
  open();
}

SongDesk::~SongDesk() {
  QBSession::session().setActiveSong(nullptr);
  QBTabMgr::clearDb();
  QBTabMgr::setStorePath({});
}

void SongDesk::open() {
  // Hundreds of saves, none of which has to survive a power cut.
  QBTabMgr::db().context().store().execute("PRAGMA synchronous = OFF");
  QBTabMgr::db().loadAlbums();
  m_album = QBTabMgr::db().findAlbumByName("Album");
}

void SongDesk::reopen() {
  QBTabMgr::db().save();
  QBSession::session().setActiveSong(nullptr);
  m_album = nullptr;
  QBTabMgr::clearDb();
  open();
}

Performance SongDesk::perform(QBSong* song, std::string_view command) {
  const auto before = m_album->songs().snapshot();
  const auto node = AlbumNode::withSongs(m_album);
  m_views.log.clear();
  Performance performance{node->findChild(song)->perform(command), {}, m_views.log};
  for (const auto& each : m_album->songs().snapshot())
    if (std::ranges::find(before, each) == before.end()) performance.songs.push_back(each);
  if (performance.succeeded) {
    EXPECT_EQ(titlesOf(node->children()), titlesOf(m_album->songs())) << "in the tree";
  }
  return performance;
}

QBSong* SongDesk::song(const std::vector<std::string>& chords, int duration) {
  QBSong* made = m_album->createSong("Song");
  for (const std::string& frets : chords) readHarmony(*addChord(made, frets, duration));
  buildTab(*made);
  QBTabMgr::db().save();
  return made;
}

QBSong* SongDesk::import(const std::vector<std::int16_t>& samples, const std::string& title) {
  const std::string file = m_folder.file(title + ".wav");
  writeWav(file, samples);
  QBSong* song = m_album->createSong(title);
  QBCmdImportSong(AlbumNode::withSongs(m_album), file, song).run();
  return song;
}

void SongDesk::deleteSongs(const std::vector<platform::Ref<QBSong>>& songs) {
  for (const auto& song : songs) m_album->deleteSong(song);
}

std::vector<std::string> songCommands() {
  std::vector<std::string> names;
  for (const SongMenuSection& section : songMenu())
    for (const SongCommand& item : section.items) names.emplace_back(item.command);
  return names;
}

std::string linesOf(const QBSong& song) {
  std::ostringstream text;
  for (const QBChord* chord : song.chords()) {
    text << std::setw(3) << chord->position() << std::setw(3) << chord->duration();
    if (const QBMeasure* measure = chord->measure()) text << " |" << measure->position();
    text << ' ' << (chord->harmony() ? chord->fullHarmonyName() : "-");
    for (const auto& tone : byStringAndFret(*chord)) text << ' ' << textOf(*tone);
    text << '\n';
  }
  return text.str();
}

}  // namespace korvel::test
