// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "tab/page/SongPage.h"
#include "ui/page/PageSheet.h"

namespace korvel::ui {

/// The grips of a page, as wide as there is room; as high as that needs.
class GripsSheet final : public QWidget {
  Q_OBJECT

 public:
  explicit GripsSheet(const SongPage& page, QWidget* parent = nullptr);

  const SongPage& page() const { return m_page; }
  void setPage(const SongPage& page);
  /// Middle of the picture of a grip.
  QPoint placeOf(int grip) const;

 signals:
  /// A grip of the page was clicked.
  void clicked(int grip);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void layOut();

  SongPage m_page;
  PageSheet m_sheet;
};

}  // namespace korvel::ui
