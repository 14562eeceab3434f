// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/store/QBTabMgr.h"

namespace korvel {

QBAlbum* QBTabMgr::findAlbumByName(const std::string& name) const {
  const auto found =
      std::ranges::find_if(m_albums, [&](const auto& album) { return album->name() == name; });
  return found == m_albums.end() ? nullptr : found->get();
}

QBTuning* QBTabMgr::findTuningByOrder(int order) const {
  const auto found =
      std::ranges::find_if(m_tunings, [&](const auto& tuning) { return tuning->order() == order; });
  return found == m_tunings.end() ? nullptr : found->get();
}

}  // namespace korvel
