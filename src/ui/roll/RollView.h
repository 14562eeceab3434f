// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractScrollArea>
#include <optional>
#include <vector>

#include "platform/persistence/Ref.h"
#include "tab/layout/LoopRange.h"
#include "ui/roll/RollHits.h"
#include "ui/roll/RollNotes.h"
#include "ui/roll/RollPainter.h"
#include "ui/roll/RollScale.h"
#include "ui/roll/SoundBackdrop.h"
#include "ui/views/SpokenView.h"
#include "workflow/editing/drawn/ToneIndex.h"
#include "workflow/playing/ToneRoll.h"

namespace korvel {
class QBSong;
class SongNotes;
}  // namespace korvel

namespace korvel::ui {

/// The tones of a song in time: one column for each chord, as wide as it is long in a song on
/// beats, pitch upwards, the louder the stronger the shade. The column that a tone begins in is
/// drawn full, those that it rings through are narrower; silenced tones are hollow. Behind them is
/// the song's recording as the detection sees it, above them its wave, and among them what was
/// heard and not taken for a note. Shows the song as it was at the last `refresh`.
///
/// Chords are named by their index in the song's `allChords`; -1 is none. Steps are those of
/// `ToneRoll`. The view changes nothing itself.
class RollView final : public QAbstractScrollArea, public SpokenView {
  Q_OBJECT

 public:
  explicit RollView(QWidget* parent = nullptr);
  ~RollView() override;

  void setSong(QBSong* song);
  /// Percent of a column's width.
  double zoom() const { return m_zoom; }
  int cursorChord() const { return m_cursor; }
  /// Column of a chord, in coordinates of the viewport.
  QRect chordRect(int chord) const { return m_scale.chordRect(chord); }
  /// Room of a tone likewise, and of a candidate by its index.
  QRect toneRect(const ToneIndex& place) const;
  QRect candidateRect(std::size_t candidate) const;
  const RollNotes& notes() const { return m_notes; }
  /// Tones that are dragged together.
  const std::vector<ToneIndex>& chosen() const { return m_chosen; }

  QString spokenText() const override;
  QRect spokenRect() const override { return chordRect(m_cursor); }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 public slots:
  /// What was heard in the song is not known any more.
  void refresh();
  /// What was heard in the song as it is shown.
  void setNotes(const SongNotes& notes);
  void showPlaying(int chord);
  /// Marks the chord that is worked on, and shows it.
  void showCursor(int chord);
  /// From the whole song in the view to single periods of a string.
  void setZoom(double percent);
  void zoomIn();
  void zoomOut();
  void resetZoom() { setZoom(100); }

 signals:
  /// A column was clicked, or gone to by keys.
  void chordChosen(int chord);
  void zoomChanged(double percent);
  /// Space was pressed.
  void playToggled();
  /// The line of a beat or a bar was dragged along the ruler, in steps from the first chord on.
  void beatDragged(double from, double to);

  // What is there is to be heard once.
  /// In seconds of the recording.
  void listenAt(double seconds, double length);
  /// As the synthesiser plays it; a MIDI number, and seconds.
  void pitchWanted(int pitch, double length);

  // Edits. Notes are those of the song, as in `RollNotes`.
  /// A tone is to go; note: which it was heard as, or `RollNotes::kNone`.
  void dropWanted(const korvel::ToneIndex& place, int note);
  void takeWanted(int note);
  void confirmWanted(int note);
  // Times and lengths are in steps; isFree: not on the grid (`DrawnNotes::Grid`).
  void toneDrawn(int pitch, double begin, double steps, bool isFree);
  void tonesMoved(const std::vector<korvel::ToneIndex>& tones, double steps, int halfTones,
                  bool isFree);
  void tonesLengthened(const std::vector<korvel::ToneIndex>& tones, double steps, bool isFree);

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
  /// What the mouse does while its button is down.
  enum class Doing : std::uint8_t { nothing, beat, pressing, moving, lengthening, drawing, band };
  struct Gesture {
    Doing doing = Doing::nothing;
    QPointF from{};
    QPointF now{};
    int beat = 0;  ///< The step of the beat whose line is dragged.
    std::optional<RollHits::Tone> tone{};
    std::optional<std::size_t> candidate{};
    Qt::KeyboardModifiers keys{};
  };
  /// A tone or a candidate, by their indexes.
  struct Spot {
    bool isCandidate;
    std::size_t index;
    bool operator==(const Spot&) const = default;
  };

  void remeasure();
  void zoomAround(double percent, double x);
  void updateColumn(int chord);
  void reveal(int chord, double place);
  RollHits hits() const { return {m_roll, m_notes, m_scale}; }
  RollPainter::Marks marks() const;
  QString words(int chord) const;
  void choose(int chord);

  // Mouse: RollMouse.cpp.
  void beginDrag();
  void click();
  void finishDrag();
  void cancelGesture();
  void toggleChosen(const ToneIndex& place);
  ToneIndex placeOf(std::size_t tone) const;
  bool isFree() const { return m_gesture.keys.testFlag(Qt::AltModifier); }
  double draggedSteps() const;
  int draggedHalfTones() const;
  QRectF drawnRect() const;
  std::vector<QRectF> draggedRects() const;
  void updatePointer(const QPointF& place);
  void listenTo(double from, double steps);

  // Keys: RollInput.cpp.
  bool editByKey(const QKeyEvent& event);
  bool dragByKey(int key, Qt::KeyboardModifiers keys);
  std::vector<Spot> spots() const;
  void goToSpot(int by);
  void drop(const Spot& spot);
  void takeOrConfirm(const Spot& spot);
  QRectF rectOf(const Spot& spot) const;
  QString wordsOf(const Spot& spot) const;

  platform::Ref<QBSong> m_song;
  ToneRoll m_roll;
  RollScale m_scale{m_roll};
  SoundBackdrop m_backdrop;
  RollNotes m_notes;
  ChordSpan m_loop;
  int m_playing = -1;
  int m_cursor = -1;
  std::optional<Spot> m_spot{};  ///< In the column of the cursor.
  std::vector<ToneIndex> m_chosen;
  Gesture m_gesture;
  double m_zoom = 100;
};

}  // namespace korvel::ui
