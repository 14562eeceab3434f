// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTabWidget>
#include <filesystem>

class QMenu;
class QPagedPaintDevice;

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
  /// False when the device cannot be painted on.
  bool print(QBSong& song, QPagedPaintDevice& device) const;
  /// As PDF. Throws platform::FileError.
  void saveTablature(QBSong& song, const std::filesystem::path& file) const;
  /// What is in front; the same otherwise.
  void savePdf(QBSong& song, const std::filesystem::path& file) const;

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

/// A song's page of chords, as its user looks at it, in a file: PDF, text or ChordPro by the
/// ending of its name. Throws platform::FileError.
void writePage(QBSong& song, const std::filesystem::path& file);

}  // namespace korvel::ui
