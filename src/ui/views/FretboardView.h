// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "platform/persistence/Ref.h"
#include "tab/layout/ChordGrip.h"
#include "ui/views/ChordWords.h"
#include "ui/views/SpokenView.h"
#include "ui/views/neck/NeckPlaces.h"

namespace korvel {
class QBSong;
}  // namespace korvel

namespace korvel::ui {

/// The neck of a guitar with the grip of one chord on it: the highest string on top, the nut at the
/// left unless it is a left hand's. Dots carry the finger where the chord's left-hand pattern has
/// one, else the note. Silenced tones are hollow. The chord that comes next can be shown ahead, in
/// frames. Has a cursor on one fret of one string; 0 is the open string.
class FretboardView final : public QWidget, public SpokenView {
  Q_OBJECT

 public:
  explicit FretboardView(QWidget* parent = nullptr);
  ~FretboardView() override;

  /// Takes the tuning from the song; shows no chord yet.
  void setSong(QBSong* song);
  /// The frets that the neck has, 12 or 24; a grip further up shows more.
  void setFrets(int frets);
  int frets() const;
  /// The nut at the right, as on the guitar of a left hand.
  void setLeftHanded(bool leftHanded);
  int cursorString() const { return m_string; }
  int cursorFret() const { return m_fret; }
  /// Middle of a fret, or of the place of the open string's mark.
  QPoint placeOf(int string, int fret) const;

  QString spokenText() const override;
  QRect spokenRect() const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 public slots:
  /// Index in the song's `allChords`; -1 shows the bare neck. To be called again after changes.
  void showChord(int chord);
  /// The same of the chord that comes next; -1 shows none, as at first.
  void showNext(int chord);
  void moveCursor(int string, int fret);

 signals:
  /// A fret was clicked, or Enter or Space was pressed on it.
  void clicked(int string, int fret);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  NeckPlaces neck() const;
  bool isKnown(int chord) const;
  ChordGrip gripOf(int chord) const;
  QString cellText(int string, int fret) const;

  platform::Ref<QBSong> m_song;
  ChordWords m_words;
  ChordGrip m_grip;
  ChordGrip m_nextGrip;
  int m_chord = -1;
  int m_next = -1;
  int m_frets = 12;
  bool m_leftHanded = false;
  int m_string = 5;
  int m_fret = 0;
};

}  // namespace korvel::ui
