// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QSettings>
#include <QString>

#include "tab/page/SongPage.h"

namespace korvel {
class QBSong;
}

namespace korvel::ui {

/// How the page of a song is looked at, remembered with the window's preferences.
struct PageLook {
  PageOptions options{};
  /// Shapes that were chosen in place of those of the page: by their names, such as "Am", in
  /// shorthand.
  QMap<QString, QString> shapes{};
};

class RememberedPages {
 public:
  /// As the song sounds, the first time.
  PageLook of(const QBSong& song) const;
  void remember(const QBSong& song, const PageLook& look);

  /// Percent of the font's size.
  int zoom() const { return m_store.value("page/zoom", 110).toInt(); }
  void setZoom(int percent) { m_store.setValue("page/zoom", percent); }
  /// The page is in front of the tablature.
  bool isInFront() const { return m_store.value("page/inFront").toBool(); }
  void setInFront(bool on) { m_store.setValue("page/inFront", on); }

 private:
  QSettings m_store;
};

/// The page with the shapes that were chosen.
SongPage pageOf(const PageSource& source, const PageLook& look);
/// As its user looks at it.
SongPage rememberedPageOf(QBSong& song);

}  // namespace korvel::ui
