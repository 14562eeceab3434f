// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/Greeting.h"

#include <QDir>
#include <QLabel>
#include <algorithm>
#include <utility>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/SettingsDialog.h"
#include "ui/window/offers/OfferBar.h"
#include "workflow/hearing/WholeSong.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/takes/Takes.h"

namespace korvel::ui {
namespace {

bool hasSongs() {
  return std::ranges::any_of(QBTabMgr::db().albums(),
                             [](const auto& album) { return !album->songs().empty(); });
}

}  // namespace

Greeting::Greeting(QBoxLayout& place, QObject* parent) : QObject(parent), m_place(place) {}

void Greeting::say() {
  Preferences preferences;
  for (const ImportUnderWay& each : preferences.runningImports()) attempt([&] { takeUp(each); });
  preferences.setRunningImports(ImportDesk::running());
  if (QBTabMgr::db().context().isReadOnly()) return tellOfReadOnlyStore();
  offerTakes();
  if (!preferences.askedForFolder() && hasSongs()) offerWorkFolder();
}

void Greeting::takeUp(const ImportUnderWay& import) {
  import.goesOn ? emit goOnWanted(import) : tellOfInterrupted(import);
}

void Greeting::offer(const QString& question, std::function<void()> accept) {
  m_place.insertWidget(0, new OfferBar(question, std::move(accept)));
}

/// What a recording has left that did not come to its end. Each is told of once.
void Greeting::offerTakes() {
  Preferences preferences;
  const QStringList known = preferences.knownTakes();
  QStringList all;
  QStringList takes;
  for (const Take& take : takesLeft()) {
    all.append(toText(take.file.string()));
    if (known.contains(all.last())) continue;
    if (!take.song)
      takes.append(all.last());
    else if (canHearAgain(*take.song))
      offerToHear(*take.song);
  }
  preferences.setKnownTakes(all);
  if (takes.isEmpty()) return;
  const QString files = takes.join(", ");
  emit told(tr("Korvel ended while it recorded; the sound is in %1").arg(files));
  offer(tr("Korvel ended while it recorded. Make a song of what is in %1?").arg(files),
        [this, takes] { emit importWanted(takes); });
}

/// It was stored as it was heard live.
void Greeting::offerToHear(const QBSong& song) {
  const ImportUnderWay left{song.unheard(), song.objectId(), song.title(), true};
  offer(tr("Korvel ended before it had heard %1 note by note. Hear it now?")
            .arg(toText(song.title())),
        [this, left] { emit goOnWanted(left); });
}

void Greeting::tellOfInterrupted(const ImportUnderWay& import) {
  const QBSong* song = ImportDesk::mend(import);
  const QString file = toText(import.file);
  emit told(song ? tr("Korvel ended while it imported %1; the song %2 has what was heard until "
                      "then. Import the file again to have all of it.")
                       .arg(file, toText(song->title()))
                 : tr("Korvel ended while it imported %1; import it again.").arg(file));
}

void Greeting::offerWorkFolder() {
  Preferences().setAskedForFolder();
  const QString folder = offeredWorkFolder();
  offer(tr("Keep exported tablature in %1? The settings name another folder.")
            .arg(QString(folder).replace(QDir::homePath(), "~")),
        [this, folder] { attempt([&] { setWorkDirectory(folder.toStdString()); }); });
}

/// The notice stays, as nothing can be changed for as long as the window does.
void Greeting::tellOfReadOnlyStore() {
  const QString file = toText(QBTabMgr::db().context().store().file());
  const QString text = tr("%1 cannot be written: songs can be read, played and exported, but not "
                          "changed. Look at the permissions of the file and its folder, then start "
                          "Korvel again.")
                           .arg(file);
  emit told(text);
  auto* notice = new QLabel(text);
  notice->setFrameShape(QFrame::StyledPanel);
  notice->setWordWrap(true);
  notice->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  m_place.insertWidget(0, notice);
}

void Greeting::attempt(const std::function<void()>& act) {
  const QString refusal = refusalOf(act);
  if (!refusal.isEmpty()) emit refused(refusal);
}

}  // namespace korvel::ui
