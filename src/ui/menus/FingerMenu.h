// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>
#include <functional>

#include "platform/persistence/Ref.h"
#include "workflow/editing/fingers/SongFingers.h"

namespace korvel {
class QBSong;
struct Strings;
}  // namespace korvel

namespace korvel::ui {

class TablatureView;

/// On which strings and frets the song that is shown is played, at the tablature's cursor and in
/// what is selected there.
class FingerMenu final : public QMenu {
  Q_OBJECT

 public:
  /// Takes the key for shapes from the tablature, too, which outlives it.
  explicit FingerMenu(TablatureView& tablature, QWidget* parent = nullptr);

  /// Nothing can be done without a song, or in one that is locked, as while it plays.
  void setSong(QBSong* song);
  void setLocked(bool locked) { m_locked = locked; }

 signals:
  /// The song has changed, so that the views show an old state of it.
  void edited();
  /// One line with what to do.
  void refused(const QString& text);

 private:
  QAction* addEdit(const QString& text, const QKeySequence& keys, const QString& hint,
                   const std::function<void()>& act);
  void addHands();
  void addShapes();
  void addMoves();
  void addTunings();
  /// With the tunings that there are now.
  void fillTunings();
  void fillCapos();
  void retune(const Strings& strings, SongFingers::Kept kept);
  void prepare();
  void askForHand();
  void changeShape(int by);
  void moveStrings(int by);
  void attempt(const std::function<void(SongFingers&)>& edit);

  TablatureView& m_tablature;
  platform::Ref<QBSong> m_song;
  bool m_locked = false;
  QAction* m_forget = nullptr;
  QMenu* m_sameSound = nullptr;
  QMenu* m_sameFrets = nullptr;
  QMenu* m_capoSameSound = nullptr;
  QMenu* m_capoSameFrets = nullptr;
};

}  // namespace korvel::ui
