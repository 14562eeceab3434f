// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/Arrivals.h"

#include <QApplication>
#include <QFileInfo>

#include "model/recorded/SongRecording.h"
#include "model/songs/QBSong.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

/// It is about the song that is shown, which must not change then.
bool isDialogOpen() { return QApplication::activeModalWidget() != nullptr; }

/// In slices although bars are wanted.
bool isTooFree(const QBSong& song) {
  const bool wantsBars = Preferences().detectionSettings().grid == Grid::beats;
  return wantsBars && song.recording() && !song.isOnBeats();
}

/// What plays in it was not told but found out.
bool wasDecided(const QBSong& song) {
  return song.isOnBeats() && song.recording() && Preferences().detection().usesSettings &&
         Preferences().detectionSettings().players == Players::automatic;
}

}  // namespace

void Arrivals::showImported(const QString& file, QBSong* song) {
  const QString name = QFileInfo(file).fileName();
  if (song->isDeleted()) return;
  if (!song->hasTabulature())
    return emit said(
        tr("%1: no tones were heard in it; is it a guitar alone, and loud enough?").arg(name));
  if (m_turnedToASong || isDialogOpen()) return emit said(tr("%1 is imported").arg(name));
  QBSession::session().setActiveSong(song);
  if (wasDecided(*song))
    return emit said(
        song->recording()->isBand()
            ? tr("It sounds like a band: the song has its chords; Hear Again as One Guitar, in the "
                 "menu of the song, makes notes of it")
            : tr("It sounds like one guitar: the song has its notes; Hear Again as a Band, in the "
                 "menu of the song, makes chords of it"));
  if (isTooFree(*song))
    return emit said(
        tr("It is in slices, as it is played too freely for bars; Tap Along and Set Tempo in the "
           "menu Edit, Rhythm make bars of it"));
  emit said(tr("Space plays it, digits change the fret at the cursor, the menu Song arranges it"));
}

void Arrivals::showRecorded(QBSong* song) {
  if (isDialogOpen())
    emit said(tr("%1 is recorded").arg(toText(song->title())));
  else
    QBSession::session().setActiveSong(song);
}

}  // namespace korvel::ui
