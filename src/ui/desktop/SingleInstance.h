// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <QStringList>

namespace korvel::ui {

/// Lets a user have one window on a store: a second start hands its files to the first one, which
/// comes to the front, and ends.
///
/// The lock tells who is first, and is free again when its process has died. The socket is only how
/// to reach it; one that a dead process left behind is replaced.
class SingleInstance final : public QObject {
  Q_OBJECT

 public:
  /// key: what there is to be one window on, such as the path of the store.
  explicit SingleInstance(const QString& key, QObject* parent = nullptr);

  /// Whether this process is the first; it hears of later ones from now on.
  bool becomeFirst();
  /// Whether the first process took the files; not when it is to end. Waits for a few seconds at
  /// most.
  bool handOver(const QStringList& files);
  /// While this process is to end it takes no files any more: later starts have to wait for its
  /// end.
  void setEnding(bool ending) { m_ending = ending; }

 signals:
  /// There was another start. files: absolute paths.
  void startedAgain(const QStringList& files);

 private:
  void take();

  QString m_name;
  QLockFile m_lock;
  QLocalServer m_server;
  bool m_ending = false;
};

}  // namespace korvel::ui
