// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/library/AlbumMenu.h"

#include "model/songs/QBAlbum.h"
#include "ui/library/LibraryActions.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {

AlbumMenu::AlbumMenu(LibraryActions& actions, QWidget* parent) : QMenu(tr("&Album"), parent) {
  addAction(tr("Rename"), &actions, [&actions] {
    if (const auto* node = QBSession::session().activeAlbumNode()) emit actions.renameWanted(node);
  });
  actions.fillAlbumMenu(*this, [] {
    const AlbumNode* node = QBSession::session().activeAlbumNode();
    return node ? node->album() : nullptr;
  });
  enable(false);
}

void AlbumMenu::enable(bool enabled) {
  for (QAction* action : actions()) action->setEnabled(enabled);
}

}  // namespace korvel::ui
