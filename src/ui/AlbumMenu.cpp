// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/AlbumMenu.h"

#include "model/QBAlbum.h"
#include "ui/LibraryActions.h"
#include "workflow/QBAlbumNode.h"
#include "workflow/QBSession.h"

namespace korvel::ui {

AlbumMenu::AlbumMenu(LibraryActions& actions, QWidget* parent) : QMenu(tr("&Album"), parent) {
  addAction(tr("Rename"), &actions, [&actions] {
    if (const auto* node = QBSession::session().activeAlbumNode()) emit actions.renameWanted(node);
  });
  actions.fillAlbumMenu(*this, [] {
    const QBAlbumNode* node = QBSession::session().activeAlbumNode();
    return node ? node->album() : nullptr;
  });
  enable(false);
}

void AlbumMenu::enable(bool enabled) {
  for (QAction* action : actions()) action->setEnabled(enabled);
}

}  // namespace korvel::ui
