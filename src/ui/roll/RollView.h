// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractScrollArea>
#include <optional>

#include "platform/persistence/Ref.h"
#include "tab/layout/LoopRange.h"
#include "ui/roll/RollScale.h"
#include "ui/views/SpokenView.h"
#include "workflow/playing/ToneRoll.h"

namespace korvel {
class QBSong;
}  // namespace korvel

namespace korvel::ui {

/// The tones of a song in time: one column for each chord, as wide as it is long in a song on
/// beats, pitch upwards, the louder the stronger the shade. The column that a tone begins in is
/// drawn full, those that it rings through are narrower; silenced tones are hollow. Shows the song
/// as it was at the last `refresh`.
///
/// Chords are named by their index in the song's `allChords`; -1 is none.
class RollView final : public QAbstractScrollArea, public SpokenView {
  Q_OBJECT

 public:
  explicit RollView(QWidget* parent = nullptr);
  ~RollView() override;

  void setSong(QBSong* song);
  /// Percent of a column's width.
  int zoom() const { return m_zoom; }
  int cursorChord() const { return m_cursor; }
  /// Column of a chord, in coordinates of the viewport.
  QRect chordRect(int chord) const { return m_scale.chordRect(chord); }

  QString spokenText() const override { return words(m_cursor); }
  QRect spokenRect() const override { return chordRect(m_cursor); }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 public slots:
  void refresh();
  void showPlaying(int chord);
  /// Marks the chord that is worked on, and shows it.
  void showCursor(int chord);
  void setZoom(int percent);
  void zoomIn();
  void zoomOut();
  void resetZoom() { setZoom(100); }

 signals:
  /// A column was clicked, or gone to by keys.
  void chordChosen(int chord);
  void zoomChanged(int percent);
  /// Space was pressed.
  void playToggled();
  /// The line of a beat or a bar was dragged along the ruler, in steps from the first chord on.
  void beatDragged(double from, double to);

 protected:
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void remeasure();
  void updateColumn(int chord);
  void reveal(int chord, double place);
  QString words(int chord) const;
  void choose(int chord);

  platform::Ref<QBSong> m_song;
  ToneRoll m_roll;
  RollScale m_scale{m_roll};
  ChordSpan m_loop;
  int m_playing = -1;
  int m_cursor = -1;
  std::optional<int> m_dragged{};  ///< The step of the beat whose line is dragged.
  double m_dragPlace = 0;          ///< Where that is now.
  int m_zoom = 100;
};

}  // namespace korvel::ui
