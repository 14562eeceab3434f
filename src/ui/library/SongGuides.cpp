// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/library/SongGuides.h"

#include <QMenu>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/guides/EasyDialog.h"
#include "ui/dialogs/guides/SingAlongDialog.h"
#include "ui/dialogs/guides/StrumDialog.h"
#include "workflow/arranging/guided/PatternStrummed.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {

SongGuides::SongGuides(QWidget* window) : QObject(window), m_window(window) {}

void SongGuides::addTo(QMenu& menu, const std::function<QBSong*()>& song) {
  const auto add = [&](const QString& title, const QString& hint, const auto& act) {
    QAction* entry = menu.addAction(title, this, [this, song, act] {
      const platform::Ref<QBSong> chosen = song();
      if (!chosen) return QBSession::session().errorNoSongSelected();
      if (chosen->chords().empty()) return emit said(tr("Choose a song with chords first"));
      act(*chosen);
    });
    entry->setToolTip(hint);
    entry->setStatusTip(hint);
  };
  add(tr("&Easy Version ..."),
      tr("Simple chords, the melody or bass and melody, at the first frets and in an easy key"),
      [this](QBSong& chosen) { makeEasy(chosen); });
  add(tr("Sing &Along ..."),
      tr("Names of chords and strums, one grip for each chord, in the key of who sings"),
      [this](QBSong& chosen) { makeToSing(chosen); });
  add(tr("Strum ..."), tr("The chords of a song in bars, struck in one of ten patterns"),
      [this](QBSong& chosen) { strum(chosen); });
  add(tr("&Practise ..."), tr("Plays the song or a passage, slower and with clicks if you like"),
      [this](QBSong& chosen) { emit practiceWanted(&chosen); });
  menu.setToolTipsVisible(true);
  menu.addSeparator();
}

void SongGuides::makeEasy(QBSong& song) {
  EasyDialog dialog(song, m_window);
  if (dialog.exec() == QDialog::Accepted) make(song, dialog, easyVersion(dialog.choices()));
}

void SongGuides::makeToSing(QBSong& song) {
  SingAlongDialog dialog(song, m_window);
  if (dialog.exec() == QDialog::Accepted) make(song, dialog, singAlong(dialog.choices()));
}

void SongGuides::strum(QBSong& song) {
  StrumDialog dialog(song, m_window);
  if (dialog.exec() == QDialog::Accepted) make(song, dialog, strummedBy(dialog.pattern()));
}

void SongGuides::make(QBSong& song, const GuideDialog& dialog, const SongGuide& guide) {
  const QString refusal = refusalOf([&] { guide.accept(song); });
  const QString line = refusal.isEmpty() ? dialog.remark() : refusal;
  if (!line.isEmpty()) emit said(line);
}

}  // namespace korvel::ui
