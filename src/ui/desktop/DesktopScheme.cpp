// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/DesktopScheme.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace korvel::ui {
namespace {

const QString kService = "org.freedesktop.portal.Desktop";
const QString kPath = "/org/freedesktop/portal/desktop";
const QString kInterface = "org.freedesktop.portal.Settings";
const QString kGroup = "org.freedesktop.appearance";
const QString kKey = "color-scheme";
constexpr uint kPrefersDark = 1;

/// Portals of the older kind wrap the value twice.
QVariant unwrapped(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value;
}

}  // namespace

DesktopScheme::DesktopScheme(QObject* parent) : QObject(parent) {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  bus.connect(kService, kPath, kInterface, "SettingChanged", this, SLOT(noteSetting(QDBusMessage)));
  QDBusMessage question = QDBusMessage::createMethodCall(kService, kPath, kInterface, "Read");
  question << kGroup << kKey;
  auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
    answer->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *answer;
    if (reply.isValid()) note(reply.value().variant());
  });
}

/// The group, the key and the value.
void DesktopScheme::noteSetting(const QDBusMessage& change) {
  const QVariantList words = change.arguments();
  if (words.size() == 3 && words[0] == kGroup && words[1] == kKey) note(words[2]);
}

void DesktopScheme::note(const QVariant& scheme) {
  const bool isDark = unwrapped(scheme).toUInt() == kPrefersDark;
  if (isDark == m_isDark) return;
  m_isDark = isDark;
  emit changed();
}

}  // namespace korvel::ui
