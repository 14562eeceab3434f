// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>
#include <QStringList>

#include "platform/persistence/Ref.h"

namespace korvel {
class QBSong;
}

namespace korvel::ui {

class Moments;
class SoundMix;
class TablatureView;

/// What can be done with the recording of the song that is shown.
class RecordingMenu final : public QMenu {
  Q_OBJECT

 public:
  struct Parts {
    SoundMix& mix;
    Moments& moments;
    TablatureView& tablature;
  };

  /// The parts outlive this.
  explicit RecordingMenu(const Parts& parts, QWidget* parent = nullptr);

  void setSong(QBSong* song);
  /// Has a copy kept of the song's recording, if that lies in the file.
  void keepFrom(const QString& file);
  /// Asks where the recording of a song is now; others that were lost with it are taken, too.
  void find(QBSong& song);
  /// Something could not be heard: tells once of each recording if it is lost.
  void lookForLost();

 signals:
  /// The recording of the song is not there any more, or another one by now.
  void lost(QBSong* song, const QString& name);
  /// Lost recordings of songs were found.
  void found();
  /// One line: with what to do, or that it is done.
  void said(const QString& text);

 private:
  void addSources();
  void addPitch();
  void enable();
  void keep();

  Parts m_parts;
  platform::Ref<QBSong> m_song;
  QStringList m_lost;  ///< Of which it was told.
  QAction* m_find;
  QAction* m_keep;
  QAction* m_recordedPitch = nullptr;
};

}  // namespace korvel::ui
