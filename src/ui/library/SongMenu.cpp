// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/library/SongMenu.h"

#include "platform/text/UserError.h"
#include "ui/desktop/Translated.h"
#include "ui/library/SongGuides.h"
#include "workflow/arranging/SongOrders.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {

namespace {

/// Hints stand beside the entry that the mouse is on, and in the status bar for the keyboard.
QAction* addEntry(QMenu& menu, const SongCommand& command) {
  QAction* entry = menu.addAction(translated(command.title));
  const QString hint = translated(command.hint);
  entry->setToolTip(hint);
  entry->setStatusTip(hint);
  menu.setToolTipsVisible(true);
  return entry;
}

}  // namespace

void addSongCommands(QMenu& menu, const std::function<void(const SongCommand&)>& give) {
  for (const SongMenuSection& section : songMenu()) {
    if (section.isSeparator()) {
      menu.addSeparator();
      continue;
    }
    QMenu& place = section.title.empty() ? menu : *menu.addMenu(translated(section.title));
    for (const SongCommand& command : section.items)
      QObject::connect(addEntry(place, command), &QAction::triggered, &menu,
                       [give, &command] { give(command); });
  }
}

SongMenu::SongMenu(SongGuides& guides, QWidget* parent)
    : QMenu(tr("&Song"), parent), m_items(QBSession::session()) {
  guides.addTo(*this, [] {
    const QBSongNode* node = QBSession::session().activeSongNode();
    return node ? node->song() : nullptr;
  });
  addSongCommands(*this, [this](const SongCommand& command) {
    try {
      orderByMenu(m_items, command);
    } catch (const platform::UserError& reason) {
      emit refused(translated(reason));
    }
  });
  enable(false);
}

void SongMenu::enable(bool enabled) {
  m_items.enable(enabled);
  setEnabledBelow(*this, enabled);
}

void SongMenu::setEnabledBelow(QMenu& menu, bool enabled) {
  for (QAction* action : menu.actions()) {
    action->setEnabled(enabled);
    if (action->menu()) setEnabledBelow(*action->menu(), enabled);
  }
}

}  // namespace korvel::ui
