// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>

class QMenu;
class QWidget;

namespace korvel {
class QBSong;
class SongGuide;
}  // namespace korvel

namespace korvel::ui {

class GuideDialog;

/// The entries that lead the menu of a song: what most want of it, each asked for in a dialog.
class SongGuides final : public QObject {
  Q_OBJECT

 public:
  /// The dialogs stand over the window, which outlives this.
  explicit SongGuides(QWidget* window);

  /// song: the one that is meant when an entry is chosen, or none.
  void addTo(QMenu& menu, const std::function<QBSong*()>& song);

 signals:
  /// One line on what was made, or with what to do when it cannot be.
  void said(const QString& text);
  void practiceWanted(QBSong* song);

 private:
  void makeEasy(QBSong& song);
  void makeToSing(QBSong& song);
  void strum(QBSong& song);
  void make(QBSong& song, const GuideDialog& dialog, const SongGuide& guide);

  QWidget* m_window;
};

}  // namespace korvel::ui
