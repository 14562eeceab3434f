// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include "tab/page/SongPage.h"

class QLabel;
class QPushButton;

namespace korvel::ui {

class GripsSheet;

/// All grips of a song, large, with the other ways to hold each; to be printed and learnt, and to
/// choose from for the page and for the song.
class GripsDialog final : public QDialog {
  Q_OBJECT

 public:
  explicit GripsDialog(const SongPage& page, QWidget* parent = nullptr);

  void setPage(const SongPage& page);
  /// Whether the song may be played so, and the grip of the page which the chord at the song's
  /// cursor has, -1 for none.
  void offerSong(bool isOffered, int gripAtCursor);
  /// Says why something was refused.
  void tell(const QString& text);

 signals:
  /// Any other shape is to be asked for that grip of the page.
  void shapeWanted(int grip);
  /// The page is to have that shape, the low string first.
  void pageWanted(int grip, const korvel::ChordShape& shape);
  /// The song is to be played so, everywhere or only at its cursor.
  void songWanted(int grip, const korvel::ChordShape& shape, bool everywhere);

 private:
  void choose(int grip, int other);
  void showCursor();
  void print();
  void savePdf();

  GripsSheet* m_sheet;
  QLabel* m_problem;
  QPushButton* m_inSong;
  QPushButton* m_atCursor;
  bool m_isOffered = false;
  int m_gripAtCursor = -1;
};

}  // namespace korvel::ui
