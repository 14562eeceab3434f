// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessible>
#include <QRect>
#include <QString>

class QWidget;

namespace korvel::ui {

/// A drawn widget that screen readers see as one line of text: what is at its cursor.
class SpokenView {
 public:
  virtual ~SpokenView() = default;
  virtual QString spokenText() const = 0;
  /// The place that the text is about, in coordinates of the widget.
  virtual QRect spokenRect() const = 0;
  virtual QAccessible::Role spokenRole() const { return QAccessible::EditableText; }

 protected:
  /// Tells the toolkit to show every view of this kind to screen readers in this way.
  SpokenView();
  /// Tells screen readers when the view, which is this, has another text than they were told last.
  void announce(QWidget& view);
  /// Tells it anew, after something else seemed to have the focus.
  void announceAgain(QWidget& view);

 private:
  QString m_told;
};

}  // namespace korvel::ui
