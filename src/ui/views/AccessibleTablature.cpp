// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/views/AccessibleTablature.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "ui/views/TablatureView.h"

namespace korvel::ui {
namespace {

class AccessibleTablature final : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit AccessibleTablature(TablatureView* view)
      : QAccessibleWidget(view, QAccessible::EditableText), m_view(*view) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  QString text(QAccessible::Text kind) const override {
    const bool isPlace = kind == QAccessible::Value || kind == QAccessible::Description;
    return isPlace ? m_view.placeText() : QAccessibleWidget::text(kind);
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
    return m_view.placeText().mid(start, end - start);
  }
  int characterCount() const override { return static_cast<int>(m_view.placeText().size()); }
  QRect characterRect(int) const override {
    const QWidget& viewport = *m_view.viewport();
    const QRect chord = m_view.chordRect(m_view.cursorChord());
    return {viewport.mapToGlobal(chord.topLeft()), chord.size()};
  }
  int offsetAtPoint(const QPoint&) const override { return 0; }
  void scrollToSubstring(int, int) override {}
  QString attributes(int, int* start, int* end) const override {
    *start = 0;
    *end = characterCount();
    return {};
  }

 private:
  TablatureView& m_view;
};

QAccessibleInterface* accessibleOf(const QString&, QObject* object) {
  auto* view = qobject_cast<TablatureView*>(object);
  return view ? new AccessibleTablature(view) : nullptr;
}

}  // namespace

void installTablatureAccessibility() {
  static const bool installed = [] {
    QAccessible::installFactory(accessibleOf);
    return true;
  }();
  static_cast<void>(installed);
}

void announceText(QWidget& view, const QString& before, const QString& now) {
  if (!QAccessible::isActive()) return;
  QAccessibleTextUpdateEvent changed(&view, 0, before, now);
  QAccessible::updateAccessibility(&changed);
  QAccessibleEvent described(&view, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&described);
}

}  // namespace korvel::ui
