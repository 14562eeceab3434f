// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <functional>

#include "tab/page/SongPage.h"

namespace korvel::ui {

class GripsSheet;

/// All grips of a song, large, with the other ways to hold each; to be printed and learnt.
class GripsDialog final : public QDialog {
  Q_OBJECT

 public:
  /// choose: has another shape chosen for a grip of the page, and answers the page then.
  using Choose = std::function<SongPage(int grip)>;

  GripsDialog(const SongPage& page, Choose choose, QWidget* parent = nullptr);

 private:
  void print();
  void savePdf();

  GripsSheet* m_sheet;
};

}  // namespace korvel::ui
