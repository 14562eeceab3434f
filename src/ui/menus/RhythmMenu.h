// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <vector>

#include "platform/persistence/Ref.h"
#include "platform/text/UserText.h"
#include "ui/menus/ReasonedMenu.h"

namespace korvel {
class QBSong;
class SongRhythm;
class WishedRhythm;
}  // namespace korvel

namespace korvel::ui {

class TablatureView;

/// How the rhythm of the song that is shown is to be read. Where that cannot be, the menu says why;
/// its keys do as well.
class RhythmMenu final : public ReasonedMenu {
  Q_OBJECT

 public:
  explicit RhythmMenu(TablatureView& tablature, QWidget* parent = nullptr);

  void setSong(QBSong* song);
  /// While the song plays.
  void setLocked(bool locked) { m_locked = locked; }
  /// A beat was dragged in the roll, in ticks from the first chord on.
  void dragBeat(double from, double to);
  /// In seconds of the recording.
  void setTaps(const std::vector<double>& seconds);

 signals:
  /// The song has changed, so that the views show an old state of it.
  void edited();
  /// One line with what to do.
  void refused(const QString& text);
  /// The user is to be asked to tap along.
  void tapsWanted();

 private:
  using Wish = std::function<void(WishedRhythm&)>;

  void addTempo();
  void addBars();
  void addFeel();
  void addLayouts();
  void addWish(QMenu& menu, const QString& text, const QKeySequence& keys,
               const platform::Phrase& title, const Wish& wish);
  /// A wish that is about the chord at the cursor, in seconds of the recording.
  void addWishHere(const QString& text, const QKeySequence& keys, const platform::Phrase& title,
                   const std::function<void(WishedRhythm&, double)>& wish);
  void askForTempo();
  void change(const platform::Phrase& title, const Wish& wish);
  void perform(const std::function<void(SongRhythm&)>& act);
  void attempt(const std::function<void()>& act);
  void moveChord(int steps);
  double secondsAtCursor() const;
  void keepCursorAt(double seconds);
  QString refusal() const;
  void prepare();
  void listOthers();

  TablatureView& m_tablature;
  platform::Ref<QBSong> m_song;
  bool m_locked = false;
  QMenu* m_others = nullptr;
};

}  // namespace korvel::ui
