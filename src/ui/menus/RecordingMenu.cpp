// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/menus/RecordingMenu.h"

#include <QActionGroup>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <memory>
#include <optional>
#include <string>

#include "model/recorded/ConcertA.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBSong.h"
#include "platform/text/UserError.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/hearing/StepsDialog.h"
#include "ui/sound/Moments.h"
#include "ui/sound/SoundMix.h"
#include "ui/views/TablatureView.h"
#include "workflow/recordings/KeepSoundCommand.h"
#include "workflow/recordings/KeptSounds.h"
#include "workflow/recordings/PlacedRecording.h"
#include "workflow/recordings/RecordingSound.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {

RecordingMenu::RecordingMenu(const Parts& parts, QWidget* parent)
    : QMenu(tr("Re&cording"), parent), m_parts(parts) {
  addSources();
  addPitch();
  addSeparator();
  addAction(tr("&What Was This?"), tr("Ctrl+H"), this,
            [this] { m_parts.moments.listenTo(m_parts.tablature.cursorChord()); });
  addAction(tr("&Strike This Chord"), tr("Ctrl+Shift+H"), this,
            [this] { m_parts.moments.strikeChord(m_parts.tablature.cursorChord()); });
  QAction* clicks = addAction(tr("Hear Clicked Notes"));
  clicks->setCheckable(true);
  clicks->setChecked(Preferences().hearsClicks());
  connect(clicks, &QAction::toggled, this, [](bool on) { Preferences().setHearsClicks(on); });
  addSeparator();
  m_find = addAction(tr("&Find Recording ..."), this, [this] {
    if (m_song) find(*m_song);
  });
  m_keep = addAction(tr("&Keep with the Song"), this, &RecordingMenu::keep);
  connect(this, &QMenu::aboutToShow, this, &RecordingMenu::enable);
}

void RecordingMenu::addSources() {
  const std::pair<QString, double> sources[] = {
      {tr("Play the &Recording"), 0}, {tr("Play &Both"), 0.5}, {tr("Play the &Guitar"), 1}};
  auto* group = new QActionGroup(this);
  for (const auto& [title, mix] : sources) {
    QAction* source = addAction(title, this, [this, mix = mix] { m_parts.mix.setMix(mix); });
    source->setCheckable(true);
    group->addAction(source);
    const auto show = [this, source, mix = mix] {
      source->setChecked(m_parts.mix.sound().mix == mix);
    };
    connect(&m_parts.mix, &SoundMix::changed, source, show);
    show();
  }
  QAction* apart = addAction(tr("Recording &Left, Guitar Right"));
  apart->setCheckable(true);
  apart->setChecked(m_parts.mix.sound().apart);
  connect(apart, &QAction::triggered, this, [this](bool on) {
    PlayedSound sound = m_parts.mix.sound();
    sound.apart = on;
    m_parts.mix.set(sound);
  });
  connect(&m_parts.mix, &SoundMix::changed, apart,
          [this, apart] { apart->setChecked(m_parts.mix.sound().apart); });
}

void RecordingMenu::addPitch() {
  m_recordedPitch = addAction(tr("Guitar Tuned as the Recording"));
  m_recordedPitch->setCheckable(true);
  connect(m_recordedPitch, &QAction::triggered, this, [this](bool on) {
    PlayedSound sound = m_parts.mix.sound();
    sound.recordedPitch = on;
    m_parts.mix.set(sound);
  });
  const auto show = [this] { m_recordedPitch->setChecked(m_parts.mix.sound().recordedPitch); };
  connect(&m_parts.mix, &SoundMix::changed, m_recordedPitch, show);
  show();
}

void RecordingMenu::setSong(QBSong* song) {
  m_song = song;
  // So that it is known to be the recording by the time that it is to be heard.
  if (song && song->recording()) fileOfRecording(*song->recording(), Proof::known);
  enable();
}

void RecordingMenu::enable() {
  const SongRecording* recording = m_song ? m_song->recording() : nullptr;
  m_find->setEnabled(recording);
  m_recordedPitch->setEnabled(recording);
  m_recordedPitch->setText(recording ? tr("Guitar Tuned as the Recording: %1")
                                           .arg(toText(concertAText(recordedCentsOf(*m_song))))
                                     : tr("Guitar Tuned as the Recording"));
  std::error_code unknown;
  m_keep->setEnabled(recording && !std::filesystem::exists(keptSoundOf(*recording), unknown));
}

/// For a recording that was moved, on whatever disk it is now.
void RecordingMenu::find(QBSong& song) {
  const platform::Ref<QBSong> kept(&song);
  const QString file = QFileDialog::getOpenFileName(parentWidget(), tr("Find Recording"),
                                                    Preferences().importFolder());
  if (file.isEmpty() || kept->isDeleted()) return;
  std::optional<std::size_t> others;
  const QString refusal = refusalOf([&] {
    const std::string path = file.toStdString();
    if (workThrough(readingPlaced(*kept, path), tr("Reading the recording ..."), parentWidget()))
      others = placeRecording(*kept, path);
  });
  if (!refusal.isEmpty()) return emit said(refusal);
  if (!others) return;
  const QString name = QFileInfo(file).fileName();
  emit said(*others == 0 ? tr("%1 is the recording of the song").arg(name)
                         : tr("%1 is the recording of the song; others that were lost with it and "
                              "are there, too: %2")
                               .arg(name)
                               .arg(*others));
  emit found();
}

void RecordingMenu::lookForLost() {
  const SongRecording* recording = m_song ? m_song->recording() : nullptr;
  if (!recording || fileOfRecording(*recording, Proof::atOnce)) return;
  const QString path = toText(recording->path());
  if (m_lost.contains(path)) return;
  m_lost << path;
  emit lost(m_song, QFileInfo(path).fileName());
}

void RecordingMenu::keepFrom(const QString& file) {
  const SongRecording* recording = m_song ? m_song->recording() : nullptr;
  if (recording && std::filesystem::path(recording->path()) == file.toStdString()) keep();
}

void RecordingMenu::keep() {
  const SongRecording* recording = m_song ? m_song->recording() : nullptr;
  if (!recording) return;
  const auto job = std::make_shared<KeepSoundCommand>(*m_song);
  job->onEnded([menu = QPointer(this)](const platform::UserText& problem) {
    if (!menu) return;
    menu->enable();
    emit menu->said(problem.empty() ? tr("A copy of the recording is kept with the songs")
                                    : translated(problem));
  });
  QBSession::session().addJob(job);
  job->runInBackground();
}

}  // namespace korvel::ui
