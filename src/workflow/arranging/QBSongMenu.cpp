// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/QBSongMenu.h"

#include <stdexcept>
#include <string>

#include "workflow/library/QBSongNode.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

void attach(NodeMenu* menu) {
  QBSession& session = QBSession::session();
  SessionViews views = session.views();
  views.songMenu = menu;
  session.attach(views);
}

}  // namespace

QBSongMenu::QBSongMenu() {
  for (const SongMenuSection& section : songMenu())
    for (const SongCommand& command : section.items) m_items.push_back({&command, false});
  attach(this);
}

QBSongMenu::~QBSongMenu() {
  if (QBSession::session().views().songMenu == this) attach(nullptr);
}

void QBSongMenu::enable(bool enabled) {
  for (Item& item : m_items) item.enabled = enabled;
}

void QBSongMenu::perform(std::string_view action) {
  const SongCommand* command = findSongAction(action);
  if (!command) throw std::invalid_argument("no action \"" + std::string(action) + '"');
  QBSession& session = QBSession::session();
  if (QBSongNode* node = session.activeSongNode())
    node->perform(*command);
  else
    session.errorNoSongSelected();
}

}  // namespace korvel
