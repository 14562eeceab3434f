// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/offers/Offers.h"

#include <QLocale>
#include <QVBoxLayout>
#include <QWidget>
#include <utility>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "ui/menus/RecordingMenu.h"
#include "ui/window/offers/OfferBar.h"
#include "workflow/hearing/ImportDesk.h"
#include "workflow/recordings/KeptSounds.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {

Offers::Offers(QVBoxLayout& place, ImportDesk& desk, RecordingMenu& recordings, QObject* parent)
    : QObject(parent), m_place(place), m_desk(desk), m_recordings(recordings) {}

void Offers::offer(const QString& question, std::function<void()> accept) {
  m_place.insertWidget(0, new OfferBar(question, std::move(accept)));
}

void Offers::offerKnown(QBSong* known, const std::function<void()>& drop) {
  const platform::Ref<QBSong> kept(known);
  const QString title = toText(known->album()->name() + '/' + known->title());
  offer(tr("This recording is already there as %1. Drop the new import, and open "
           "that song?")
            .arg(title),
        [kept, drop] {
          drop();
          if (!kept->isDeleted()) QBSession::session().setActiveSong(kept);
        });
}

void Offers::offerTuning(QBSong* song, const QString& tuning, const std::function<void()>& hear) {
  offer(tr("%1 seems to be played in %2. Hear it again in that tuning?")
            .arg(toText(song->title()), tuning),
        hear);
}

void Offers::offerToKeep(const QString& file) {
  if (Preferences().askedToKeep()) return;
  Preferences().setKeepsRecordings(false);
  const auto bytes = sizeOfKept(file.toStdString());
  offer(tr("Keep copies of the recordings with the songs, for when their files are "
           "moved or deleted? This one takes about %1.")
            .arg(m_place.parentWidget()->locale().formattedDataSize(bytes)),
        [this, file] {
          Preferences().setKeepsRecordings(true);
          m_desk.setKeepsSounds(true);
          m_recordings.keepFrom(file);  // it may have been heard already
        });
}

void Offers::offerToFind(QBSong* song, const QString& recording) {
  const platform::Ref<QBSong> kept(song);
  offer(tr("The recording %1 is not there any more, or has changed. Say where it "
           "is now?")
            .arg(recording),
        [this, kept] {
          if (!kept->isDeleted()) m_recordings.find(*kept);
        });
}

}  // namespace korvel::ui
