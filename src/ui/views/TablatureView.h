// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <optional>

#include "platform/persistence/Ref.h"
#include "tab/layout/ChordSearch.h"
#include "tab/layout/LoopRange.h"
#include "tab/layout/TabLayout.h"
#include "tab/page/StaffGrips.h"
#include "ui/views/DoubtMarks.h"
#include "ui/views/SpokenView.h"
#include "ui/views/TabCanvas.h"
#include "workflow/session/SessionViews.h"

namespace korvel {
class QBSong;
}  // namespace korvel

namespace korvel::ui {

/// The text tablature of the active song: shows which chord plays, which are looped and which are
/// selected, and has a cursor on one string of one chord, at which keys edit. Changes nothing
/// itself but tells what the user wants.
///
/// Chords are named by their index in the song's `allChords`; -1 is none. Shows the song as it was
/// at the last `refresh`, which has to follow every change of its chords, loop or text.
class TablatureView final : public QAbstractScrollArea, public TabView, public SpokenView {
  Q_OBJECT

 public:
  explicit TablatureView(QWidget* parent = nullptr);
  ~TablatureView() override;

  // What the session says.
  void setActiveSong(QBSong* song) override;
  void drawPlayMode(float fraction) override;
  /// Keeps the cursor, the selection and the place in the text.
  void refresh() override;
  /// Column and row of the text.
  void handleClick(double x, double y) override;
  /// While locked, clicks move the cursor but not the loop, and keys do not edit.
  void lock(bool locked) override;
  void drawTuning(QBTuning* tuning) override;
  void drawContent(const std::string& text) override;
  /// What the user is told, without the report, which is in the log.
  void drawProblem(const std::string& report, const platform::UserText& told) override;
  /// Adds what to do about it.
  void advise(const QString& advice);
  void sayGoodBye() override;

  /// What may be wrong in the song; to be told anew after each refresh.
  void setDoubts(DoubtMarks marks);
  const DoubtMarks& doubts() const { return m_doubts; }

  QBSong* song() const { return m_song; }
  const TabLayout& tabLayout() const { return m_layout; }
  int cursorChord() const { return m_chord; }
  int cursorString() const { return m_string; }
  int playingChord() const { return m_playing; }
  /// The place of the cursor in words; empty without one.
  QString placeText() const;
  QString spokenText() const override;
  QRect spokenRect() const override { return chordRect(m_chord); }
  /// From first to last; first is -1 when none are.
  ChordSpan selection() const { return m_selection; }
  QString selectedText() const;
  /// Percent of the font's size.
  int zoom() const { return m_zoom; }
  /// Shown as long as there is nothing else.
  void setPlaceholderText(const QString& text);
  /// The monospaced font to show and print in; its size at 100 % is the widget's own.
  void setTabFamily(const QString& family);
  QFont tabFont() const;
  /// Whether shapes of the chords are drawn above the strings, and how.
  void showDiagrams(bool shown);
  void setLeftHanded(bool leftHanded);
  /// Where a chord is drawn, in coordinates of the viewport.
  QRect chordRect(int chord) const;

  /// Says to screen readers what is at the cursor, if the focus is here.
  void sayPlace() { announceAgain(*this); }

 public slots:
  void moveCursor(int chord, int string);
  /// The nearer end of the loop goes to the chord at the cursor.
  void chooseLoopEnd();
  void showPlaying(int chord);
  void setZoom(int percent);
  void zoomIn();
  void zoomOut();
  void resetZoom() { setZoom(100); }
  void copy() const;
  void selectAll();
  void selectNone();
  /// With the cursor on the first one.
  void selectChords(int first, int last);
  /// Move the cursor to the next chord of that name; false when there is none.
  bool findNext(const QString& name);
  bool findPrevious(const QString& name);

 signals:
  /// A chord was clicked on the ruler or with Shift, or Enter was pressed on one that is not
  /// doubtful: for `QBSession::selectChord`.
  void clicked(double x, double y);
  /// A chord was clicked below the ruler, and not with Shift alone: it may be to be heard.
  /// string: of the note that was clicked; -1 beside the notes.
  void chordClicked(int chord, int string, Qt::KeyboardModifiers keys);
  /// The session handed on such a click on that chord: the nearer end of the loop goes there.
  void loopEndChosen(int chord);
  /// The mouse was dragged from one chord to another.
  void loopDragged(int first, int last);
  void cursorMoved(int chord, int string);
  /// `continues` when a second digit makes one fret of it and the digit before.
  void fretTyped(int chord, int string, int fret, bool continues);
  void removalWanted(int chord, int string);
  /// Enter was pressed on a doubtful chord.
  void confirmWanted();
  /// The next way to hold the chord at the cursor, or for -1 the one before: Tab was pressed while
  /// chords are selected.
  void shapeWanted(int by);
  void playToggled();
  /// A menu of what can be done at the cursor, or with what is selected, is to be shown there.
  void menuWanted(const QPoint& globalPlace);
  /// A text about what went wrong stands in the song's place.
  void problemShown();
  /// Escape was pressed in such a text.
  void songWanted();
  void zoomChanged(int percent);
  void selectionChanged(bool any);

 protected:
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Typed {
    int chord = -1;
    int string = -1;
    int fret = 0;
    QElapsedTimer since;
  };

  void showText(const std::string& text);

  /// Where the view is: a chord, the one at the cursor if it is seen, and how many rows below its
  /// top string the view begins.
  struct Top {
    int chord = -1;
    double rows = 0;
  };

  // Geometry.
  void remeasure();
  int columnsOfView() const;
  void layOut();
  void fillWidth();
  Top top() const;
  void showTop(const Top& top);
  void updateScrollBars();
  QPointF origin() const;
  QPointF toCells(const QPoint& position) const;
  std::optional<int> chordUnder(const QPoint& position) const;
  bool isOnRuler(const QPoint& position) const;
  int stringOfNoteUnder(const QPoint& position) const;
  QRectF cursorCells() const;
  void reveal(const QRectF& cells);
  void follow(int chord);
  void updateChord(int chord);

  // Painting.
  void paintPlaceholder(QPainter& painter) const;
  QString placeholder() const;

  // Input.
  void showPointer(const QPoint& position);
  void endDrag(const QPoint& began);
  bool zoomByKey(QKeyEvent& event);
  bool copyByKey(QKeyEvent& event);
  bool moveByKey(QKeyEvent& event);
  bool editByKey(QKeyEvent& event);
  bool changeShapeByKey(const QKeyEvent& event);
  void moveTo(std::optional<int> chord, int string, bool selecting);
  int chordOnPage(int pages) const;
  void typeDigit(int digit);
  void select(ChordSpan span);
  void offerSelection() const;
  bool find(const QString& name, SearchDirection direction);

  platform::Ref<QBSong> m_song;
  TabLayout m_layout;
  int m_width = 0;  ///< Columns that the layout was made for.
  bool m_resizing = false;
  TabCanvas m_canvas;
  QString m_family;
  QString m_placeholder;
  int m_zoom = 100;
  bool m_locked = false;

  int m_chord = -1;
  int m_string = 0;
  int m_playing = -1;
  ChordSpan m_loop;
  ChordSpan m_selection;
  DoubtMarks m_doubts;
  bool m_showsDiagrams = false;
  bool m_leftHanded = false;
  std::vector<StaffGrip> m_grips;  ///< Of what the diagrams are; none while they are not shown.
  int m_anchor = -1;               ///< Where the selection began.
  std::optional<QPoint> m_pressed;
  bool m_dragging = false;
  Typed m_typed;
};

}  // namespace korvel::ui
