// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/SpokenView.h"

#include <QAccessibleWidget>
#include <QWidget>
#include <utility>

namespace korvel::ui {
namespace {

class AccessibleView final : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  AccessibleView(QWidget* widget, const SpokenView& view)
      : QAccessibleWidget(widget, view.spokenRole()), m_view(view) {}

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
  QAccessibleEvent described(&view, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&described);
}

}  // namespace korvel::ui
