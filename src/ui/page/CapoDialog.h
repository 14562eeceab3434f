// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include "tab/page/PageSource.h"

class QTreeWidget;

namespace korvel::ui {

/// Shows what a capo at each fret is good for, and has one chosen.
class CapoDialog final : public QDialog {
  Q_OBJECT

 public:
  /// The source is as the song is to sound; capo: the one that there is now.
  CapoDialog(const PageSource& source, int capo, QWidget* parent = nullptr);

  /// Once accepted: the fret, 0 for none.
  int capo() const;

 private:
  QTreeWidget* m_table;
};

}  // namespace korvel::ui
