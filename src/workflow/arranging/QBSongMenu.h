// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>
#include <vector>

#include "workflow/arranging/SongCommands.h"
#include "workflow/session/SessionViews.h"

namespace korvel {

class QBSession;

/// The application's song menu: the commands of a song, given to the song that is selected in the
/// tree. Attaches itself to the session; starts disabled.
class QBSongMenu final : public NodeMenu {
 public:
  struct Item {
    const SongCommand* command;
    bool enabled;
  };

  explicit QBSongMenu(QBSession& session);
  QBSongMenu(const QBSongMenu&) = delete;
  QBSongMenu& operator=(const QBSongMenu&) = delete;
  ~QBSongMenu() override;

  void enable(bool enabled) override;
  const std::vector<Item>& items() const { return m_items; }
  QBSession& session() const { return m_session; }
  /// Runs the command of an action (`SongCommand::action`) on the selected song; without one only
  /// the log says so. std::invalid_argument for an action that there is none of.
  void perform(std::string_view action);

 private:
  void attach(NodeMenu* menu);

  QBSession& m_session;
  std::vector<Item> m_items;
};

}  // namespace korvel
