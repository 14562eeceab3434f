// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTabWidget>
#include <filesystem>
#include <vector>

#include "ui/paper/PaperFiles.h"

class QMenu;

namespace korvel {
class QBSong;
}

namespace korvel::ui {

class PageDesk;
class TablatureView;

/// The tablature of a song and the page of its chords, one in front of the other, which is what is
/// zoomed and printed.
class SongSheets final : public QTabWidget {
  Q_OBJECT

 public:
  SongSheets(TablatureView& tablature, PageDesk& page, QWidget* parent = nullptr);

  /// Entries that zoom what is in front.
  void addZooms(QMenu& menu);
  /// An entry with the keys Alt+9 that goes to the page.
  void addPage(QMenu& menu);
  /// For paper.
  PaperWork tablatureOf(QBSong& song) const;
  /// What is in front, likewise.
  PaperWork frontOf(QBSong& song) const;

 public slots:
  void goToTablature();
  /// Leaves the keys where they are, if it is in front already.
  void showTablature();
  void goToPage();
  /// Gives what is in front the keys.
  void focusFront();

 private:
  bool isPageInFront() const;

  TablatureView& m_tablature;
  PageDesk& m_page;
};

/// A song's page of chords, as its user looks at it, in a file: text, ChordPro or what `savePaper`
/// writes, by the ending of its name. Answers the names of the files. Throws platform::FileError.
std::vector<std::filesystem::path> writePage(QBSong& song, const std::filesystem::path& file,
                                             const MayReplace& mayReplace = {});

}  // namespace korvel::ui
