// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "platform/persistence/Ref.h"
#include "workflow/QBCommand.h"

namespace korvel {

class QBAlbumNode;
class QBSong;

/// A command that works on an album of the tree.
class QBCmdAlbum : public QBCommand {
 public:
  explicit QBCmdAlbum(std::shared_ptr<QBAlbumNode> album);
  ~QBCmdAlbum() override;

 protected:
  std::shared_ptr<QBAlbumNode> m_source;
  platform::Ref<QBSong> m_target;
};

}  // namespace korvel
