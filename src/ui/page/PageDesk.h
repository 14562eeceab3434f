// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>

#include "platform/persistence/Ref.h"
#include "ui/page/RememberedPages.h"

class QComboBox;
class QSpinBox;
class QToolBar;

namespace korvel {
class QBSong;
}

namespace korvel::ui {

class PageView;

/// The page of a song's chords with its controls: capo, key, names or numbers, words and grips. How
/// a song's page is looked at is remembered with it.
class PageDesk final : public QWidget {
  Q_OBJECT

 public:
  explicit PageDesk(QWidget* parent = nullptr);

  PageView& view() { return *m_view; }
  void setSong(QBSong* song);
  void setLeftHanded(bool leftHanded);

 signals:
  /// The words of the song have changed, so that the views show an old state of it.
  void edited();
  /// One line with what to do.
  void refused(const QString& text);

 private:
  void addControls(QToolBar& row);
  void showLook();
  void change(const std::function<void(PageLook&)>& change);
  void chooseCapo();
  void pasteWords();
  void showGrips();
  void chooseShape(int grip);
  void showShape(const PageGrip& grip, const ChordShape& shape);
  void forgetShape(const PageGrip& grip);
  void playShape(int index, const ChordShape& shape, bool everywhere);
  bool isAsPlayed(const PageSource& source) const;
  int gripAtCursor(const PageSource& source, const SongPage& page) const;
  /// Makes an edit and tells why it was refused.
  void attempt(const std::function<void(QBSong&)>& edit);

  platform::Ref<QBSong> m_song;
  PageLook m_look;
  bool m_isShowing = false;  ///< The controls take over what is remembered.
  PageView* m_view;
  QSpinBox* m_capo;
  QSpinBox* m_halfTones;
  QComboBox* m_numbers;
};

}  // namespace korvel::ui
