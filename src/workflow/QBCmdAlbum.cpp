// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/QBCmdAlbum.h"

#include "model/QBSong.h"
#include "workflow/QBAlbumNode.h"

namespace korvel {

QBCmdAlbum::QBCmdAlbum(std::shared_ptr<QBAlbumNode> album) : m_source(std::move(album)) {}

QBCmdAlbum::~QBCmdAlbum() = default;

}  // namespace korvel
