// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <functional>
#include <optional>

#include "platform/persistence/Ref.h"
#include "ui/menus/ReasonedMenu.h"
#include "workflow/editing/doubts/DoubtList.h"
#include "workflow/editing/doubts/SongCorrections.h"

namespace korvel {
class PartHearing;
class QBSong;
}  // namespace korvel

namespace korvel::ui {

class TablatureView;

/// What may have been heard wrong in the song that is shown: marks it in the tablature, goes from
/// place to place, and does what its user says about the notes there.
class DoubtMenu final : public ReasonedMenu {
  Q_OBJECT

 public:
  /// The tablature outlives it.
  explicit DoubtMenu(TablatureView& tablature, QWidget* parent = nullptr);

  void setSong(QBSong* song);
  /// While a song is locked, as while it plays, doubts are shown but nothing is corrected.
  void setLocked(bool locked) { m_locked = locked; }
  /// After every change of the song. What is doubted is found in a turn of the event loop of its
  /// own, as a long song keeps its user waiting for the rest already.
  void refresh();
  /// At once, if it is not known yet.
  void find();
  /// Drops the note on a string of a doubtful chord, as a key does; false where none is doubted.
  bool drop(int chord, int string);

 signals:
  /// What was heard in the song, as it is now.
  void found(const SongNotes& notes);
  /// The song has changed, so that the views show an old state of it.
  void edited();
  /// One line with what to do.
  void refused(const QString& text);
  /// What is doubted at the place that was gone to.
  void said(const QString& text);
  /// How many doubtful places are left.
  void leftChanged(int places);
  /// That moment of the recording is to be heard, in seconds.
  void listenAt(double seconds, double length);

 private:
  void addPlaces();
  void addCorrections();
  QAction* addKey(const QString& text, const QKeySequence& keys, const std::function<void()>& act);
  void mark();
  void goTo(const DoubtfulPlace* place);
  void goToNext();
  void goToPrevious();
  void confirm();
  void takeOther();
  void dropHere();
  void chooseSensitivity();
  void hearSelection();
  bool hears(PartHearing& hearing) const;
  static QString wordsOf(const NoteChanges& changes);
  QString refusal() const;
  void correct(const std::function<void(SongCorrections&)>& act);
  void keepCursorAt(double seconds);
  std::optional<SongCorrections::Part> selectedPart() const;

  TablatureView& m_tablature;
  platform::Ref<QBSong> m_song;
  std::optional<SongNotes> m_notes;  ///< Of the song as it is.
  DoubtList m_doubts;
  bool m_isFound = false;  ///< What is doubted.
  QTimer m_turn;           ///< In which it is.
  bool m_locked = false;
};

}  // namespace korvel::ui
