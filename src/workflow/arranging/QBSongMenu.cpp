// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/QBSongMenu.h"

#include <stdexcept>
#include <string>

#include "workflow/library/QBSongNode.h"
#include "workflow/session/QBSession.h"

namespace korvel {

QBSongMenu::QBSongMenu(QBSession& session) : m_session(session) {
  for (const SongMenuSection& section : songMenu())
    for (const SongCommand& command : section.items) m_items.push_back({&command, false});
  attach(this);
}

QBSongMenu::~QBSongMenu() {
  if (m_session.views().songMenu == this) attach(nullptr);
}

void QBSongMenu::attach(NodeMenu* menu) {
  SessionViews views = m_session.views();
  views.songMenu = menu;
  m_session.attach(views);
}

void QBSongMenu::enable(bool enabled) {
  for (Item& item : m_items) item.enabled = enabled;
}

void QBSongMenu::perform(std::string_view action) {
  const SongCommand* command = findSongAction(action);
  if (!command) throw std::invalid_argument("no action \"" + std::string(action) + '"');
  if (QBSongNode* node = m_session.activeSongNode())
    node->perform(*command);
  else
    m_session.errorNoSongSelected();
}

}  // namespace korvel
