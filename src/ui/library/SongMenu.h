// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>
#include <functional>

#include "workflow/arranging/QBSongMenu.h"

namespace korvel::ui {

/// Fills a menu with the commands of a song, in their submenus. Titles and hints are
/// those of the commands.
void addSongCommands(QMenu& menu, const std::function<void(const SongCommand&)>& give);

class SongGuides;

/// The song menu of the menu bar, for the song that is selected in the tree.
class SongMenu final : public QMenu, public NodeMenu {
  Q_OBJECT

 public:
  /// The guides' entries lead it.
  explicit SongMenu(SongGuides& guides, QWidget* parent = nullptr);

  void enable(bool enabled) override;

 signals:
  void refused(const QString& reason);

 private:
  void setEnabledBelow(QMenu& menu, bool enabled);

  QBSongMenu m_items;
};

}  // namespace korvel::ui
