// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace korvel {
class QBSong;
}

namespace korvel::ui {

/// Songs that come of imports and recordings: shows each, or only says that it has come when the
/// user has turned to another song or to a dialog meanwhile.
class Arrivals final : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  void importStarted() { m_turnedToASong = false; }
  /// A song is shown, by the user or by this.
  void songShown() { m_turnedToASong = true; }
  void showImported(const QString& file, QBSong* song);
  void showRecorded(QBSong* song);

 signals:
  /// One line about what has come, and what to do with it.
  void said(const QString& text);

 private:
  bool m_turnedToASong = false;  ///< Since the last import was started.
};

}  // namespace korvel::ui
