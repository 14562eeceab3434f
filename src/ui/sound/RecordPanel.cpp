// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sound/RecordPanel.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/sound/SampleRate.h"
#include "tab/layout/ChordSearch.h"
#include "ui/desktop/FocusRing.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/InputList.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

using namespace std::chrono_literals;
using State = LiveRecording::State;

constexpr auto kTick = 50ms;
constexpr int kFullLevel = 100;
constexpr int kFewestLines = 3;

LiveRecording::Options chosenOptions() {
  const Preferences preferences;
  LiveRecording::Options options;
  options.device = preferences.input().toStdString();
  options.detection = &preferences.detection();
  options.settings = preferences.detectionSettings();
  return options;
}

QString withTake(const LiveRecording& recording, const QString& text) {
  const auto take = recording.takeLeft();
  return take ? text + RecordPanel::tr("; the recording is in %1").arg(toText(take->string()))
              : text;
}

}  // namespace

RecordPanel::RecordPanel(QWidget* parent)
    : QWidget(parent),
      m_device(new InputList),
      m_start(new QPushButton(tr("Record"))),
      m_stop(new QPushButton(tr("Stop"))),
      m_level(new QProgressBar),
      m_time(new QLabel("0:00")),
      m_chords(new QPlainTextEdit) {
  m_level->setRange(0, kFullLevel);
  m_level->setTextVisible(false);
  m_level->setAccessibleName(tr("Level"));
  m_chords->setReadOnly(true);
  m_chords->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  m_chords->setPlaceholderText(tr("Chords appear here as they are heard."));
  m_chords->setAccessibleName(tr("Chords heard"));
  m_chords->setMinimumHeight(kFewestLines * fontMetrics().lineSpacing());
  // A screen reader says the value of a choice, and takes what it is for from its label.
  auto* label = new QLabel(tr("Device"));
  label->setBuddy(m_device);
  auto* device = new QHBoxLayout;
  device->addWidget(label);
  device->addWidget(m_device, 1);
  auto* buttons = new QHBoxLayout;
  for (QWidget* each : std::initializer_list<QWidget*>{m_start, m_stop, m_time})
    buttons->addWidget(each);
  setFocusProxy(m_start);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addLayout(device);
  column->addLayout(buttons);
  column->addWidget(m_level);
  column->addWidget(m_chords, 1);
  connect(m_start, &QPushButton::clicked, this, &RecordPanel::start);
  connect(m_stop, &QPushButton::clicked, this, &RecordPanel::stop);
  m_clock.setInterval(kTick);
  connect(&m_clock, &QTimer::timeout, this, &RecordPanel::tick);
  enter(State::ready);
}

RecordPanel::~RecordPanel() = default;

bool RecordPanel::isBusy() const { return m_recording != nullptr; }

void RecordPanel::showEvent(QShowEvent* event) {
  if (!isBusy()) m_device->list();
  QWidget::showEvent(event);
}

void RecordPanel::showChosenDevice() {
  if (isVisible() && !isBusy()) m_device->list();
}

void RecordPanel::start() {
  m_chords->clear();
  m_recording = std::make_unique<LiveRecording>(QBTabMgr::db(), chosenOptions());
  m_recording->onChord([this](QBChord& chord) { showChord(chord); });
  m_recording->onState([this](State state) { enter(state); });
  m_recording->onProgress(
      [this](double share) { m_level->setValue(static_cast<int>(share * kFullLevel)); });
  try {
    m_recording->start();
    m_clock.start();
  } catch (const std::exception& problem) {
    m_recording.reset();
    emit refused(translated(problem));
  }
}

/// Once more leaves the song at the chords that were heard live.
void RecordPanel::stop() {
  if (!m_recording) return;
  m_recording->state() == State::recording ? m_recording->stop() : m_recording->cancel();
}

bool RecordPanel::isRecording() const {
  return m_recording && m_recording->state() == State::recording;
}

std::optional<ImportUnderWay> RecordPanel::finish() {
  if (!m_recording) return std::nullopt;
  m_recording->endNow();
  const platform::Ref<QBSong> song = m_recording->song();
  conclude();
  if (!song || song->isWhole()) return std::nullopt;
  return ImportUnderWay{song->unheard(), song->objectId(), song->title(), true};
}

void RecordPanel::enter(State state) {
  const bool busy = state == State::recording || state == State::hearing;
  busy ? FocusRing::handOver(*m_start, *m_stop) : FocusRing::handOver(*m_stop, *m_start);
  m_device->setEnabled(!busy);
  m_stop->setText(state == State::hearing ? tr("Keep Live Chords") : tr("Stop"));
  m_level->setAccessibleName(state == State::hearing ? tr("Progress") : tr("Level"));
  if (state == State::hearing)
    m_chords->appendPlainText(tr("Listening once more, note by note ..."));
  // The recording must not go while it calls.
  if (state == State::over) QTimer::singleShot(0, this, &RecordPanel::conclude);
}

void RecordPanel::showChord(QBChord& chord) {
  const double seconds = static_cast<double>(chord.timestamp()) / platform::kSampleRate;
  m_chords->appendPlainText(
      QString("%1 s  %2").arg(seconds, 6, 'f', 1).arg(toText(shownName(chord))));
}

void RecordPanel::tick() {
  if (!m_recording || m_recording->state() != State::recording) return;
  m_level->setValue(static_cast<int>(m_recording->level() * kFullLevel));
  const int seconds = static_cast<int>(m_recording->elapsed());
  m_time->setText(QString("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QChar('0')));
}

void RecordPanel::conclude() {
  if (!m_recording) return;
  const auto recording = std::move(m_recording);
  m_clock.stop();
  m_level->setValue(0);
  QBSession::session().refreshTree();
  if (recording->ending() == LiveRecording::Ending::deviceLost)
    emit refused(tr("The sound device is gone, which ended the recording there"));
  if (recording->problem())
    emit refused(
        withTake(*recording, tr("Not all is stored: %1").arg(translated(*recording->problem()))));
  else if (!recording->song())
    emit refused(withTake(*recording, tr("No tones were heard; nothing was stored")));
  if (recording->song()) emit recorded(recording->song());
}

}  // namespace korvel::ui
