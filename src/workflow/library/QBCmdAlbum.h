// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "platform/persistence/Ref.h"
#include "workflow/session/QBCommand.h"

namespace korvel {

class AlbumNode;
class QBSong;

/// A command that works on an album of the tree.
class QBCmdAlbum : public QBCommand {
 public:
  explicit QBCmdAlbum(std::shared_ptr<AlbumNode> album);
  ~QBCmdAlbum() override;

 protected:
  std::shared_ptr<AlbumNode> m_source;
  platform::Ref<QBSong> m_target;
};

}  // namespace korvel
