// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusMessage>
#include <QObject>

namespace korvel::ui {

/// Whether the desktop wants dark colours, as its portal says. Light as long as it has not
/// answered, and where there is no portal.
class DesktopScheme final : public QObject {
  Q_OBJECT

 public:
  /// Asks, and goes on listening.
  explicit DesktopScheme(QObject* parent = nullptr);

  bool isDark() const { return m_isDark; }

 signals:
  void changed();

 private slots:
  void noteSetting(const QDBusMessage& change);

 private:
  void note(const QVariant& scheme);

  bool m_isDark = false;
};

}  // namespace korvel::ui
