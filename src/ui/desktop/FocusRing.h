// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFocusFrame>
#include <QPointer>

namespace korvel::ui {

/// A frame around the control that has the focus: styles show it faintly, above all in dark
/// colours. Goes with its control.
class FocusRing final : public QFocusFrame {
  Q_OBJECT

 public:
  explicit FocusRing(QWidget& control);

  /// Shows a ring where keys have moved the focus to; the mouse needs none, and neither do views
  /// that draw a cursor of their own. To be called with each control that gets the focus.
  static void follow(QWidget& control, Qt::FocusReason reason);
  /// Enables one control instead of another, which leaves it the focus.
  static void handOver(QWidget& from, QWidget& to);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void place();

  QPointer<QWidget> m_control;
};

}  // namespace korvel::ui
