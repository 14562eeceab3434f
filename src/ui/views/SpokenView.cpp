// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/SpokenView.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <QWidget>
#include <utility>

namespace korvel::ui {
namespace {

/// What was at the cursor once, as an object of its own: readers say what the focus moves to, but
/// not that a text has become another one.
class AccessiblePlace final : public QAccessibleInterface {
 public:
  AccessiblePlace(QWidget& widget, const SpokenView& view)
      : m_widget(&widget), m_words(view.spokenText()), m_rect(view.spokenRect()) {}

  /// The cursor is elsewhere from now on.
  void leave() { m_isLeft = true; }

  bool isValid() const override { return m_widget != nullptr; }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(m_widget);
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? m_words : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override { return {m_widget->mapToGlobal(m_rect.topLeft()), m_rect.size()}; }
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.focusable = true;
    state.focused = m_widget->hasFocus() && !m_isLeft;
    state.invisible = !m_widget->isVisible() || m_isLeft;
    return state;
  }

 private:
  const QPointer<QWidget> m_widget;
  const QString m_words;
  const QRect m_rect;
  bool m_isLeft = false;
};

class AccessibleView final : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  AccessibleView(QWidget* widget, const SpokenView& view)
      : QAccessibleWidget(widget, view.spokenRole()), m_view(view) {}
  ~AccessibleView() override {
    for (const QAccessible::Id id : {m_before, m_now})
      if (id) QAccessible::deleteAccessibleInterface(id);
  }
  AccessibleView(const AccessibleView&) = delete;
  AccessibleView& operator=(const AccessibleView&) = delete;

  /// Another object than before, which stays for those who still ask for it.
  QAccessibleInterface* newPlace() {
    if (m_before) QAccessible::deleteAccessibleInterface(m_before);
    m_before = m_now;
    if (m_now) static_cast<AccessiblePlace*>(QAccessible::accessibleInterface(m_now))->leave();
    m_now = QAccessible::registerAccessibleInterface(new AccessiblePlace(*widget(), m_view));
    return QAccessible::accessibleInterface(m_now);
  }

  // Behind the children that every such widget has.
  int childCount() const override { return QAccessibleWidget::childCount() + (m_now ? 1 : 0); }
  QAccessibleInterface* child(int index) const override {
    return m_now && index == QAccessibleWidget::childCount()
               ? QAccessible::accessibleInterface(m_now)
               : QAccessibleWidget::child(index);
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return m_now && child == QAccessible::accessibleInterface(m_now)
               ? QAccessibleWidget::childCount()
               : QAccessibleWidget::indexOfChild(child);
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  QString text(QAccessible::Text kind) const override {
    const bool isLine = kind == QAccessible::Value || kind == QAccessible::Description;
    return isLine ? m_view.spokenText() : QAccessibleWidget::text(kind);
  }

  // The text can be read but has no parts to choose from: the arrows move in the music instead.
  void selection(int, int* start, int* end) const override { *start = *end = 0; }
  int selectionCount() const override { return 0; }
  void addSelection(int, int) override {}
  void removeSelection(int) override {}
  void setSelection(int, int, int) override {}
  int cursorPosition() const override { return 0; }
  void setCursorPosition(int) override {}
  QString text(int start, int end) const override {
    return m_view.spokenText().mid(start, end - start);
  }
  int characterCount() const override { return static_cast<int>(m_view.spokenText().size()); }
  QRect characterRect(int) const override {
    const QRect place = m_view.spokenRect();
    return {widget()->mapToGlobal(place.topLeft()), place.size()};
  }
  int offsetAtPoint(const QPoint&) const override { return 0; }
  void scrollToSubstring(int, int) override {}
  QString attributes(int, int* start, int* end) const override {
    *start = 0;
    *end = characterCount();
    return {};
  }

 private:
  const SpokenView& m_view;
  QAccessible::Id m_now = 0;
  QAccessible::Id m_before = 0;
};

QAccessibleInterface* accessibleOf(const QString&, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  const auto* view = dynamic_cast<const SpokenView*>(widget);
  return view ? new AccessibleView(widget, *view) : nullptr;
}

}  // namespace

SpokenView::SpokenView() { QAccessible::installFactory(accessibleOf); }

void SpokenView::announce(QWidget& view) {
  const QString now = spokenText();
  const QString before = std::exchange(m_told, now);
  if (now == before || !QAccessible::isActive()) return;
  QAccessibleTextUpdateEvent changed(&view, 0, before, now);
  QAccessible::updateAccessibility(&changed);
  announceAgain(view);
}

void SpokenView::announceAgain(QWidget& view) {
  if (!QAccessible::isActive()) return;
  auto* seen = dynamic_cast<AccessibleView*>(QAccessible::queryAccessibleInterface(&view));
  if (!seen || !view.hasFocus()) return;
  QAccessibleEvent moved(seen->newPlace(), QAccessible::Focus);
  QAccessible::updateAccessibility(&moved);
}

}  // namespace korvel::ui
