// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/Appearance.h"

#include <QApplication>
#include <QPushButton>
#include <QStyle>
#include <QTest>

#include "support/Testing.h"
#include "ui/desktop/FocusRing.h"
#include "ui/views/Shades.h"

namespace korvel::ui {
namespace {

constexpr double kText = 4.5;
constexpr double kSign = 3;

void expectReadable(const QPalette& palette) {
  const Shades shades(palette);
  for (const QColor& ground : {shades.base, shades.loop, shades.chosen}) {
    EXPECT_GE(contrast(shades.text, ground), kText);
    EXPECT_GE(contrast(shades.faintText, ground), kText);
    EXPECT_GE(contrast(shades.mark, ground), kSign);
  }
  EXPECT_GE(contrast(shades.onAccent, shades.accent), kText);
  EXPECT_GE(contrast(shades.line, shades.base), kSign);
  EXPECT_GE(contrast(shades.quiet, shades.base), 2.8);
  EXPECT_GE(contrast(shades.mark, shades.quiet), 1.7) << "loud tones look loud";
  const auto color = [&](QPalette::ColorRole role) { return palette.color(role); };
  EXPECT_GE(contrast(color(QPalette::PlaceholderText), color(QPalette::Base)), kText);
  EXPECT_GE(contrast(color(QPalette::ButtonText), color(QPalette::Button)), kText);
  EXPECT_GE(contrast(color(QPalette::Link), color(QPalette::Base)), kText);
}

TEST(Appearance, everyThemeCanBeRead) {
  for (const Theme theme : {Theme::light, Theme::dark}) {
    applyTheme(theme);
    expectReadable(QApplication::palette());
  }
  applyTheme(Theme::system);
  QPalette pale = QApplication::palette();
  pale.setColor(QPalette::Highlight, QColor(61, 174, 233));  // white text on it cannot be read
  EXPECT_GE(contrast(Shades(pale).onAccent, Shades(pale).accent), kText);
}

TEST(Appearance, followsTheDesktopThereAndBack) {
  applyTheme(Theme::system, false);
  const QColor window = QApplication::palette().color(QPalette::Window);
  const QString style = QApplication::style()->name();
  applyTheme(Theme::system, true);
  EXPECT_LT(QApplication::palette().color(QPalette::Window).lightnessF(), 0.5);
  applyTheme(Theme::light, true);
  EXPECT_GT(QApplication::palette().color(QPalette::Window).lightnessF(), 0.5) << "was asked for";
  applyTheme(Theme::system, false);
  EXPECT_EQ(QApplication::palette().color(QPalette::Window), window);
  EXPECT_EQ(QApplication::style()->name(), style);
}

TEST(FocusRing, goesWithTheControlThatKeysReached) {
  QWidget window;
  window.resize(300, 200);
  auto* first = new QPushButton(&window);
  auto* second = new QPushButton(&window);
  const auto ring = [&] { return window.findChild<FocusRing*>(); };
  window.show();
  FocusRing::follow(*first, Qt::TabFocusReason);
  first->setGeometry(100, 80, 90, 30);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ring()->geometry().contains(first->geometry()); }));
  EXPECT_TRUE(ring()->isVisible());
  FocusRing::follow(*second, Qt::BacktabFocusReason);
  EXPECT_TRUE(ring()->geometry().contains(second->geometry()));
  FocusRing::follow(*first, Qt::MouseFocusReason);
  EXPECT_EQ(ring(), nullptr);
  FocusRing::follow(*first, Qt::ShortcutFocusReason);
  delete first;
  EXPECT_TRUE(QTest::qWaitFor([&] { return !ring(); })) << "as with the row of a job that goes";
}

}  // namespace
}  // namespace korvel::ui
