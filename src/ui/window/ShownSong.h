// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>

#include "platform/persistence/Ref.h"
#include "ui/roll/RollEdits.h"

namespace korvel {
class QBSong;
struct Practice;
}  // namespace korvel

namespace korvel::ui {

class EditMenu;
class FretboardView;
class Moments;
class PageDesk;
class PlayerBar;
class PracticePanel;
class RollView;
class TablatureView;

/// The song that the window shows: keeps its views in step with each other, with the edits and with
/// what is heard.
class ShownSong final : public QObject {
  Q_OBJECT

 public:
  struct Views {
    TablatureView& tablature;
    FretboardView& fretboard;
    PageDesk& page;
    RollView& roll;
    EditMenu& edits;
    PlayerBar& player;
    PracticePanel& practice;
    Moments& moments;
  };

  /// The views outlive this.
  explicit ShownSong(const Views& views, QObject* parent = nullptr);

  /// The tablature has it already.
  void set(QBSong* song);
  QBSong* song() const { return m_song; }
  void resetLoop();
  // At the cursor.
  void beginLoop();
  void endLoop();
  /// Answers whether its passage is the song's loop now, or the song has none as it is to be.
  bool choosePassage(const Practice& practice);
  /// After a change of the song, or of where its recording is.
  void refresh();

 signals:
  /// Where the cursor is, in words.
  void placeChanged(const QString& words);
  /// Another song is heard, or none.
  void heardChanged(QBSong* song);
  /// One line with what to do.
  void refused(const QString& text);

 private:
  void connectPage();
  bool hearsClicks() const;
  void hearClicked(int chord, int string, Qt::KeyboardModifiers keys);
  void showCursor(int chord);
  void showGrip(int chord);
  void showPlaying();
  void practiseLoop(int first, int last);
  bool changeLoop(const std::function<void(QBSong&)>& change);

  Views m_views;
  RollEdits m_rollEdits;
  platform::Ref<QBSong> m_song;
  bool m_plays = false;  ///< Any song.
};

}  // namespace korvel::ui
