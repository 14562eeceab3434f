// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>

#include "workflow/session/SessionViews.h"

namespace korvel::ui {

class LibraryActions;

/// The album menu of the menu bar, for the album that is selected in the tree.
class AlbumMenu final : public QMenu, public NodeMenu {
  Q_OBJECT

 public:
  explicit AlbumMenu(LibraryActions& actions, QWidget* parent = nullptr);

  void enable(bool enabled) override;
};

}  // namespace korvel::ui
