// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/QBNameMgr.h"

#include "model/songs/QBAlbum.h"
#include "model/store/QBTabMgr.h"
#include "workflow/arranging/SongCommands.h"

namespace korvel {
namespace {

constexpr const char* kAnother = "_2";

}  // namespace

QBNameMgr::QBNameMgr(QBAlbum* album, std::string name) : m_album(album), m_name(std::move(name)) {}

QBNameMgr::~QBNameMgr() = default;

std::string QBNameMgr::tagged(std::string_view tag) {
  m_name += tag;
  return newName();
}

std::string QBNameMgr::taggedAs(std::string_view command) {
  return tagged(findSongCommand(command)->tag);
}

std::string QBNameMgr::tagged(std::string_view tag, int number) {
  return tagged(std::string(tag) + std::to_string(number) + ')');
}

std::string QBNameMgr::extractPartChords(int from, int to) {
  return tagged('(' + std::to_string(from) + ',' + std::to_string(to) + ')');
}

std::string QBNameMgr::applyMetric(int beat, int beattype) {
  return tagged('(' + std::to_string(beat) + '_' + std::to_string(beattype) + ')');
}

std::string QBNameMgr::newName() {
  while (m_album && m_album->findSongByName(m_name)) m_name += kAnother;
  return m_name;
}

std::string QBNameMgr::newAlbumName(const QBTabMgr& db) {
  while (db.findAlbumByName(m_name)) m_name += kAnother;
  return m_name;
}

}  // namespace korvel
