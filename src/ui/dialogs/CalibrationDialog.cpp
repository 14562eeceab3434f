// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/CalibrationDialog.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "audio/MonoTrack.h"
#include "audio/QBSampleSource.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/store/QBTabMgr.h"
#include "music/NoteName.h"
#include "platform/text/UserError.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/SoundFileNames.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/TextSize.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/InputList.h"
#include "workflow/hearing/SoundCheck.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

using namespace std::chrono_literals;

constexpr auto kTick = 50ms;
constexpr int kWholeBar = 100;
constexpr int kColumnsOfDialog = 46;
constexpr int kLinesOfDialog = 44;
constexpr int kFewestLines = 5;
constexpr int kResultColumn = 1;
constexpr int kLevelColumn = 2;

QLabel* paragraph(const QString& text) {
  auto* label = new QLabel(text);
  label->setWordWrap(true);
  return label;
}

QProgressBar* bar(const QString& name) {
  auto* made = new QProgressBar;
  made->setRange(0, kWholeBar);
  made->setTextVisible(false);
  made->setAccessibleName(name);
  return made;
}

QString titleOf(const CalibrationNote& note) {
  const QString place =
      note.fret == 0
          ? CalibrationDialog::tr("String %1 open").arg(kStrings - note.string)
          : CalibrationDialog::tr("String %1, fret %2").arg(kStrings - note.string).arg(note.fret);
  return place + ": " + toText(noteName(note.midi));
}

QString levelText(double decibels) {
  return QString("%1 dB").arg(qRound(decibels)).replace('-', QChar(0x2212));
}

/// A name that no instrument has yet.
QString proposedName() {
  const auto isTaken = [](const QString& name) {
    return std::ranges::any_of(QBTabMgr::db().instruments(),
                               [&](const auto& each) { return toText(each->name()) == name; });
  };
  QString name = CalibrationDialog::tr("My Guitar");
  for (int i = 2; isTaken(name); ++i) name = CalibrationDialog::tr("My Guitar %1").arg(i);
  return name;
}

QStringList localFiles(const QMimeData& data) {
  QStringList files;
  for (const QUrl& url : data.urls())
    if (url.isLocalFile()) files.append(url.toLocalFile());
  return files;
}

}  // namespace

CalibrationDialog::CalibrationDialog(QWidget* parent)
    : QDialog(parent),
      m_tuning(QBTabMgr::db().selectedTuning()),
      m_wanted(notesToCalibrate(*m_tuning)),
      m_browse(new QPushButton(tr("&Choose File ..."))),
      m_device(new InputList),
      m_record(new QPushButton),
      m_level(bar(tr("Level"))),
      m_time(new QLabel("0:00")),
      m_notes(new QTreeWidget),
      m_progress(bar(tr("Progress"))),
      m_status(paragraph(QString())),
      m_name(new QLineEdit(proposedName())) {
  setWindowTitle(tr("Calibrate From Recorded Notes"));
  setAcceptDrops(true);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
  m_create = buttons->addButton(tr("Create &Instrument"), QDialogButtonBox::AcceptRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &CalibrationDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &CalibrationDialog::reject);
  auto* content = new QWidget;
  auto* parts = new QVBoxLayout(content);
  parts->setContentsMargins(0, 0, 0, 0);
  parts->addWidget(instructions());
  parts->addWidget(sources());
  parts->addWidget(results(), 1);
  auto* scrolled = new QScrollArea;  // for large fonts on small screens
  scrolled->setWidget(content);
  scrolled->setWidgetResizable(true);
  scrolled->setFrameShape(QFrame::NoFrame);
  scrolled->setFocusPolicy(Qt::NoFocus);
  auto* column = new QVBoxLayout(this);
  column->addWidget(scrolled);
  column->addWidget(buttons);
  m_clock.setInterval(kTick);
  connect(&m_clock, &QTimer::timeout, this, &CalibrationDialog::tick);
  connect(m_name, &QLineEdit::textChanged, this, &CalibrationDialog::updateButtons);
  m_device->list();
  listNotes();
  updateButtons();
  resize(sizeOfText(*this, kColumnsOfDialog, kLinesOfDialog));
}

CalibrationDialog::~CalibrationDialog() { cancelHearing(); }

QWidget* CalibrationDialog::instructions() {
  auto* box = new QWidget;
  auto* column = new QVBoxLayout(box);
  column->setContentsMargins(0, 0, 0, 0);
  const QString notes =
      tr("1. Play single notes, one after the other: each string open and then at fret 7, from the "
         "lowest string to the highest.");
  column->addWidget(paragraph(notes));
  column->addWidget(
      paragraph(tr("2. Let each ring for three seconds, mute it, and leave a second of silence.")));
  column->addWidget(paragraph(
      tr("3. Play as loud as in your recordings, the guitar alone. Single notes at other frets, up "
         "to fret 12, make it better.")));
  column->addWidget(paragraph(
      tr("The instrument tells the classic detection, and the chords shown while you record, which "
         "tones are only overtones. The precise detection hears without an instrument.") +
      ' ' + translated(Preferences().detection().ofNewInstrument)));
  return box;
}

QGroupBox* CalibrationDialog::sources() {
  auto* box = new QGroupBox(tr("Recording"));
  auto* column = new QVBoxLayout(box);
  auto* file = new QHBoxLayout;
  file->addWidget(m_browse);
  QLabel* label = paragraph(tr("or drop a file here, or record now:"));
  label->setBuddy(m_device);
  file->addWidget(label, 1);
  auto* live = new QHBoxLayout;
  live->addWidget(m_device, 1);
  live->addWidget(m_record);
  live->addWidget(m_level, 1);
  live->addWidget(m_time);
  column->addLayout(file);
  column->addLayout(live);
  connect(m_browse, &QPushButton::clicked, this, &CalibrationDialog::chooseFile);
  connect(m_record, &QPushButton::clicked, this, &CalibrationDialog::toggleRecording);
  return box;
}

QWidget* CalibrationDialog::results() {
  m_notes->setHeaderLabels({tr("Note"), tr("Result"), tr("Level")});
  m_notes->setRootIsDecorated(false);
  m_notes->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  m_notes->header()->setStretchLastSection(true);
  m_notes->setAccessibleName(tr("Notes that were heard"));
  m_notes->setMinimumHeight(kFewestLines * m_notes->fontMetrics().lineSpacing());
  m_name->setAccessibleName(tr("Name of the instrument"));
  auto* box = new QWidget;
  auto* column = new QVBoxLayout(box);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(m_notes, 1);
  column->addWidget(m_progress);
  column->addWidget(m_status);
  auto* form = new QFormLayout;
  form->addRow(tr("&Name of the instrument"), m_name);
  column->addLayout(form);
  return box;
}

// ---- where the notes come from

void CalibrationDialog::chooseFile() {
  Preferences preferences;
  const QString file = QFileDialog::getOpenFileName(this, tr("Recorded Notes"),
                                                    preferences.importFolder(), soundFileFilter());
  if (file.isEmpty()) return;
  preferences.setImportFolder(QFileInfo(file).absolutePath());
  hearFile(file);
}

void CalibrationDialog::hearFile(const QString& file) {
  try {
    requireSound(file.toStdString());
    m_recording.reset();
    hear(std::make_shared<MonoTrack>(file.toStdString()), QFileInfo(file).fileName().toStdString());
  } catch (const std::exception& problem) {
    say(translated(problem));
  }
}

void CalibrationDialog::toggleRecording() {
  if (m_recording && m_recording->isRunning())
    m_recording->stop();
  else
    record();
  updateButtons();
}

void CalibrationDialog::record() {
  cancelHearing();
  listNotes();
  m_recording = std::make_unique<NoteRecording>();
  // The recording must not go while it calls.
  m_recording->onEnded([this] { QTimer::singleShot(0, this, &CalibrationDialog::hearRecording); });
  try {
    m_recording->start(Preferences().input().toStdString());
    m_clock.start();
    say(tr("Play the notes, then press Stop."));
  } catch (const std::exception& problem) {
    m_recording.reset();
    say(translated(problem));
  }
}

void CalibrationDialog::hearRecording() {
  if (m_recording && !m_recording->isRunning())
    hear(m_recording->sound(), tr("Recording").toStdString());
}

void CalibrationDialog::dragEnterEvent(QDragEnterEvent* event) {
  const bool idle = m_browse->isEnabled();
  if (idle && localFiles(*event->mimeData()).size() == 1) event->acceptProposedAction();
}

void CalibrationDialog::dropEvent(QDropEvent* event) {
  hearFile(localFiles(*event->mimeData()).value(0));
}

// ---- hearing them

void CalibrationDialog::hear(std::shared_ptr<QBSampleSource> source, const std::string& name) {
  cancelHearing();
  listNotes();
  m_job = std::make_shared<CalibrateCommand>(std::move(source), name, *m_tuning);
  m_job->onFinished([this] { showHeard(); });
  QBSession::session().addJob(m_job);
  m_job->runInBackground();
  m_clock.start();
  say(tr("Listening ..."));
  updateButtons();
}

void CalibrationDialog::cancelHearing() {
  if (m_job && m_job->isRunning()) m_job->cancelAndDrop();
  m_job.reset();
}

void CalibrationDialog::listNotes() {
  m_notes->clear();
  for (const CalibrationNote& note : m_wanted)
    m_notes->addTopLevelItem(new QTreeWidgetItem({titleOf(note), QString(), QString()}));
  m_progress->setValue(0);
  say(tr("Choose a recording of the notes, or record them."));
}

/// Each heard note stands in one line: that of a note to play, or one below them.
void CalibrationDialog::showHeard() {
  auto heard = m_job->notes();
  bool isMissing = false;
  for (std::size_t i = 0; i < m_wanted.size(); ++i) {
    QTreeWidgetItem* line = m_notes->topLevelItem(static_cast<int>(i));
    const auto found =
        std::ranges::find(heard, m_wanted[i].midi, &CalibrateCommand::HeardNote::midi);
    const bool isHeard = found != heard.end();
    line->setText(kResultColumn, isHeard ? tr("✓ heard") : tr("✗ missing"));
    if (isHeard) line->setText(kLevelColumn, levelText(found->decibels));
    isMissing = isMissing || !isHeard;
    if (isHeard) heard.erase(found);
  }
  for (const auto& note : heard)
    m_notes->addTopLevelItem(new QTreeWidgetItem({tr("Also: %1").arg(toText(noteName(note.midi))),
                                                  tr("✓ heard"), levelText(note.decibels)}));
  if (const auto problem = m_job->problem())
    say(translated(*problem));
  else if (isMissing)
    say(tr("Every string was heard. The instrument becomes better with the missing notes."));
  else
    say(tr("All notes were heard. Give the instrument a name and create it."));
  m_progress->setValue(kWholeBar);
  QTimer::singleShot(0, this, &CalibrationDialog::updateButtons);  // when the job has ended
}

void CalibrationDialog::tick() {
  const bool recording = m_recording && m_recording->isRunning();
  const bool hearing = m_job && m_job->isRunning();
  m_level->setValue(recording ? static_cast<int>(m_recording->level() * kWholeBar) : 0);
  if (recording) {
    const int seconds = static_cast<int>(m_recording->elapsed());
    m_time->setText(QString("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QChar('0')));
  }
  if (hearing) m_progress->setValue(m_job->m_percent);
  if (!recording && !hearing) m_clock.stop();
}

void CalibrationDialog::say(const QString& text) {
  m_status->setText(text);
  m_status->setAccessibleName(text);
  QAccessibleEvent changed(m_status, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&changed);
}

void CalibrationDialog::updateButtons() {
  const bool recording = m_recording && m_recording->isRunning();
  const bool hearing = m_job && m_job->isRunning();
  m_browse->setEnabled(!recording && !hearing);
  m_device->setEnabled(!recording && !hearing);
  m_record->setEnabled(!hearing);
  m_record->setText(recording ? tr("&Stop") : tr("&Record"));
  const bool complete = m_job && !hearing && m_job->isComplete();
  m_create->setEnabled(!recording && complete && !m_name->text().trimmed().isEmpty());
}

void CalibrationDialog::accept() {
  try {
    addInstrument(m_name->text().trimmed().toStdString(), m_job->calibration());
    QDialog::accept();
  } catch (const platform::UserError& reason) {
    say(translated(reason));
    m_name->setFocus();
    m_name->selectAll();
  }
}

void CalibrationDialog::reject() {
  cancelHearing();
  QDialog::reject();
}

}  // namespace korvel::ui
