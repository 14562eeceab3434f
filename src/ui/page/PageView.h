// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractScrollArea>
#include <optional>

#include "platform/persistence/Ref.h"
#include "tab/page/SongPage.h"
#include "ui/page/PagePlaces.h"
#include "ui/page/PageSheet.h"
#include "ui/page/RememberedPages.h"
#include "ui/views/SpokenView.h"

namespace korvel {
class QBSong;
}

namespace korvel::ui {

class WordsLine;

/// The page of chords of the active song, which people sing from: shows which bar plays and where
/// the cursor is, and takes words that are typed below a bar. Changes nothing itself but tells what
/// the user wants.
///
/// Chords are named by their index in the song's `allChords`; -1 is none. Shows the song as it was
/// at the last `refresh`; while it is hidden it waits with that.
class PageView final : public QAbstractScrollArea, public SpokenView {
  Q_OBJECT

 public:
  explicit PageView(QWidget* parent = nullptr);
  ~PageView() override;

  void setSong(QBSong* song);
  void setLook(const PageLook& look);
  /// Of the song as it was at the last refresh.
  const SongPage& page() const { return m_page; }
  const PageSheet& sheet() const { return m_sheet; }
  int zoom() const { return m_zoom; }
  int cursor() const { return m_chord; }
  /// Where a chord is drawn, in coordinates of the viewport; empty where it is not.
  QRect chordRect(int chord) const;

  QString spokenText() const override;
  QRect spokenRect() const override;
  QAccessible::Role spokenRole() const override { return QAccessible::StaticText; }

 public slots:
  void refresh();
  void showCursor(int chord);
  void showPlaying(int chord);
  void setZoom(int percent);
  void zoomIn();
  void zoomOut();
  void resetZoom() { setZoom(100); }
  /// Has the words of the bar at the cursor typed in their place.
  void typeWords();

 signals:
  /// Another state of the song is shown, or none.
  void refreshed();
  /// The cursor goes to that chord.
  void chordChosen(int chord);
  /// A chord was clicked with Ctrl or Alt, with Shift as well to strike it.
  void listenWanted(int chord, bool struck);
  void playToggled();
  /// What is sung in the ticks [first, end) is to be that.
  void wordsTyped(int first, int end, const QString& words);
  /// Another shape is to be chosen for that grip of the page: it was clicked.
  void shapeWanted(int grip);
  void zoomChanged(int percent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  using Place = PagePlaces::Place;

  void layOut();
  QFont pageFont() const;
  QPointF origin() const;
  const PageChord& chordAt(const PageSheet::Chord& chord) const;
  void reveal(const QRectF& place);
  void paintMarks(QPainter& painter, const Shades& shades) const;
  void paintCursor(QPainter& painter, const Shades& shades) const;
  bool moveByKey(const QKeyEvent& event);
  void moveBy(int chords);
  void moveByLines(int lines);
  void choose(const PageSheet::Chord& chord);
  void typeWordsAt(const Place& place);
  void placeTyping();
  void typeNextWords();
  void endTyping(bool keep);
  QString wordsOf(const Place& place) const;

  platform::Ref<QBSong> m_song;
  PageLook m_look;
  SongPage m_page;
  PagePlaces m_places;
  PageSheet m_sheet;
  bool m_isOld = false;  ///< The song has changed since.
  int m_zoom = 100;
  int m_chord = -1;
  int m_playing = -1;
  WordsLine* m_typing = nullptr;  ///< While words are typed.
  Place m_typedAt{};
};

}  // namespace korvel::ui
