// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

/// Draws off the screen, and keeps preferences and sockets away from those of the user.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QTemporaryDir home;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("XDG_RUNTIME_DIR", home.path().toUtf8());
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
  QApplication application(argc, argv);
  QApplication::setOrganizationName("korvel");
  QApplication::setApplicationName("korvel-ui-tests");
  return RUN_ALL_TESTS();
}
