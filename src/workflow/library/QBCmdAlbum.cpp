// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/QBCmdAlbum.h"

#include "model/songs/QBSong.h"
#include "workflow/library/AlbumNode.h"

namespace korvel {

QBCmdAlbum::QBCmdAlbum(std::shared_ptr<AlbumNode> album) : m_source(std::move(album)) {}

QBCmdAlbum::~QBCmdAlbum() = default;

}  // namespace korvel
