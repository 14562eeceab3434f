// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/QBTreeNode.h"

#include "model/QBAlbum.h"

namespace korvel {

QBAlbumNode::QBAlbumNode(QBAlbum* album) : m_album(album) {}

QBAlbumNode::~QBAlbumNode() = default;

}  // namespace korvel
