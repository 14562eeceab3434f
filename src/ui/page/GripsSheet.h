// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "tab/page/SongPage.h"
#include "ui/page/PageSheet.h"
#include "ui/views/SpokenView.h"

namespace korvel::ui {

/// The grips of a page, as wide as there is room; as high as that needs. A row for each chord, as
/// the page has it at the left and others behind it; the arrow keys move between them.
class GripsSheet final : public QWidget, public SpokenView {
  Q_OBJECT

 public:
  explicit GripsSheet(const SongPage& page, QWidget* parent = nullptr);

  const SongPage& page() const { return m_page; }
  /// The cursor stays at its chord.
  void setPage(const SongPage& page);
  /// The grip of the page at the cursor; -1 without grips.
  int grip() const;
  /// What is held there, the low string first. Only with grips.
  ChordShape shape() const;
  /// To that grip of the page.
  void goTo(int grip) { moveTo(at(grip, -1)); }
  /// Middle of the picture of a grip, or of one of the others beside it.
  QPoint placeOf(int grip, int other = -1) const;
  /// The place of the cursor.
  QRect cursorRect() const;

  QString spokenText() const override;
  QRect spokenRect() const override { return cursorRect(); }
  QAccessible::Role spokenRole() const override { return QAccessible::List; }

 signals:
  void cursorMoved();
  /// A grip was clicked, or Enter pressed on it: one of the others of that grip of the page, or
  /// with -1 itself, in place of which any other one is wanted.
  void chosen(int grip, int other);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  const PageSheet::Grip* at(int grip, int other) const;
  const PageSheet::Grip* atCursor() const { return at(m_grip, m_other); }
  ChordShape shapeOf(const PageSheet::Grip& place) const;
  bool moveByKey(int key);
  void moveTo(const PageSheet::Grip* place);
  void choose();
  void layOut();

  SongPage m_page;
  PageSheet m_sheet;
  int m_grip = 0;
  int m_other = -1;
};

}  // namespace korvel::ui
