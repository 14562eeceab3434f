// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sound/PracticePanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSpinBox>
#include <cmath>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "ui/sound/PlayerBar.h"
#include "ui/sound/PracticeControls.h"
#include "ui/views/FretboardView.h"

namespace korvel::ui {
namespace {

constexpr double kPerCent = 100;
constexpr double kCentsOfHalfTone = 100;
constexpr double kMostTransposed = 12;
constexpr int kStringsOfGuitar = 6;
constexpr int kSpeedStep = 5;

QSpinBox* numberBox(int least, int most, int value, const QString& name, const QString& suffix) {
  auto* box = new QSpinBox;
  box->setRange(least, most);
  box->setValue(value);
  box->setAccessibleName(name);
  box->setSuffix(suffix);
  return box;
}

QWidget* withTitle(const QString& title, QWidget* neck) {
  auto* group = new QWidget;
  auto* column = new QVBoxLayout(group);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(new QLabel(title));
  column->addWidget(neck, 1);
  return group;
}

}  // namespace

PracticePanel::PracticePanel(PlayerBar& player, QWidget* parent)
    : QWidget(parent),
      m_player(player),
      m_controls(new PracticeControls(player)),
      m_now(new FretboardView),
      m_next(new FretboardView) {
  setAccessibleName(tr("Practise"));
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Practise"));
  m_now->setAccessibleName(tr("Chord"));
  m_next->setAccessibleName(tr("Next chord"));
  auto* row = new QHBoxLayout(this);
  row->addWidget(m_controls);
  row->addWidget(newControls());
  row->addWidget(withTitle(tr("Now"), m_now), 1);
  row->addWidget(withTitle(tr("Next"), m_next), 1);
  for (FretboardView* neck : {m_now, m_next}) {
    neck->setFocusPolicy(Qt::NoFocus);
    neck->installEventFilter(this);
  }
  connect(&m_player.mix(), &SoundMix::changed, this, &PracticePanel::showSound);
  connect(m_controls, &PracticeControls::loopWanted, this, &PracticePanel::loopWanted);
  showSound();
}

QWidget* PracticePanel::newControls() {
  auto* controls = new QWidget;
  auto* rows = new QGridLayout(controls);
  addRamp(*rows);
  addSound(*rows);
  addStrings(*rows);
  rows->setRowStretch(rows->rowCount(), 1);
  rows->setColumnStretch(rows->columnCount(), 1);
  return controls;
}

void PracticePanel::addRamp(QGridLayout& rows) {
  m_faster = new QCheckBox(tr("Faster and faster"));
  m_faster->setToolTip(tr("A loop begins slower and gets faster, up to the speed that is set"));
  m_from = numberBox(10, 100, 60, tr("Begins at"), " %");
  m_step = numberBox(1, 50, 5, tr("Faster by"), " %");
  m_rounds = numberBox(1, 16, 2, tr("After so many rounds"), {});
  rows.addWidget(m_faster, 0, 0);
  rows.addWidget(m_from, 0, 1);
  rows.addWidget(new QLabel(tr("then")), 1, 0, Qt::AlignRight);
  rows.addWidget(m_step, 1, 1);
  rows.addWidget(new QLabel(tr("more after so many rounds")), 2, 0, Qt::AlignRight);
  rows.addWidget(m_rounds, 2, 1);
  m_between = new QComboBox;
  m_between->addItems({tr("Nothing"), tr("A silent bar"), tr("A bar of clicks")});
  m_between->setAccessibleName(tr("Between rounds"));
  rows.addWidget(new QLabel(tr("Between rounds")), 3, 0);
  rows.addWidget(m_between, 3, 1);
  connect(m_faster, &QCheckBox::toggled, this, &PracticePanel::change);
  connect(m_between, &QComboBox::currentIndexChanged, this, &PracticePanel::change);
  for (QSpinBox* box : {m_from, m_step, m_rounds})
    connect(box, &QSpinBox::valueChanged, this, &PracticePanel::change);
}

void PracticePanel::addSound(QGridLayout& rows) {
  m_apart = new QCheckBox(tr("Recording left, guitar right"));
  m_transpose = new QDoubleSpinBox;
  m_transpose->setRange(-kMostTransposed, kMostTransposed);
  m_transpose->setDecimals(2);
  m_transpose->setAccessibleName(tr("Half tones that the recording is transposed by"));
  m_transpose->setSuffix(' ' + tr("half tones"));
  rows.addWidget(m_apart, 4, 0, 1, 2);
  rows.addWidget(new QLabel(tr("Recording higher by")), 5, 0);
  rows.addWidget(m_transpose, 5, 1);
  connect(m_apart, &QCheckBox::toggled, this, &PracticePanel::change);
  connect(m_transpose, &QDoubleSpinBox::valueChanged, this, &PracticePanel::change);
}

void PracticePanel::addStrings(QGridLayout& rows) {
  auto* line = new QWidget;
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(0, 0, 0, 0);
  for (int string = 1; string <= kStringsOfGuitar; ++string) {
    auto* box = new QCheckBox(QString::number(string));
    box->setAccessibleName(tr("String %1 is not heard").arg(string));
    connect(box, &QCheckBox::toggled, this, &PracticePanel::change);
    row->addWidget(box);
    m_strings.push_back(box);
  }
  auto* label = new QLabel(tr("My part, silent: strings"));
  label->setToolTip(tr("The guitar leaves out what is played on these strings"));
  rows.addWidget(label, 6, 0);
  rows.addWidget(line, 6, 1);
}

// ---- what is shown

void PracticePanel::setSong(QBSong* song) {
  m_song = song;
  if (isVisible()) m_controls->setSong(song);
  m_now->setSong(song);
  m_next->setSong(song);
}

/// While it is hidden it takes no time of anybody's.
void PracticePanel::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  m_controls->setSong(m_song);
}

void PracticePanel::showChord(int chord) {
  if (!isVisible()) return;
  m_now->showChord(chord);
  m_next->showChord(chordAfter(chord));
}

/// The next one that is struck; -1 at the end.
int PracticePanel::chordAfter(int chord) const {
  if (!m_song || chord < 0) return -1;
  const auto& chords = m_song->allChords();
  for (int next = chord + 1; next < static_cast<int>(chords.size()); ++next) {
    const QBHold* hold = chords[static_cast<std::size_t>(next)]->hold();
    if (hold && !hold->isEmpty()) return next;
  }
  return -1;
}

void PracticePanel::showSound() {
  const PlayedSound& sound = m_player.mix().sound();
  m_showing = true;
  m_faster->setChecked(sound.rounds.ramp.has_value());
  if (const auto& ramp = sound.rounds.ramp) {
    m_from->setValue(static_cast<int>(std::lround(ramp->from * kPerCent)));
    m_step->setValue(static_cast<int>(std::lround(ramp->step * kPerCent)));
    m_rounds->setValue(ramp->rounds);
  }
  m_between->setCurrentIndex(static_cast<int>(sound.rounds.between));
  m_apart->setChecked(sound.apart);
  m_transpose->setValue(sound.cents / kCentsOfHalfTone);
  for (std::size_t i = 0; i < m_strings.size(); ++i)
    m_strings[i]->setChecked((sound.silent & (2U << i)) != 0);
  for (QSpinBox* box : {m_from, m_step, m_rounds}) box->setEnabled(m_faster->isChecked());
  m_showing = false;
}

// ---- what the user does

void PracticePanel::change() {
  if (m_showing) return;
  PlayedSound sound = m_player.mix().sound();
  sound.rounds.ramp.reset();
  if (m_faster->isChecked())
    sound.rounds.ramp = platform::SpeedRamp{m_from->value() / kPerCent, m_step->value() / kPerCent,
                                            m_rounds->value()};
  sound.rounds.between = static_cast<BetweenRounds>(m_between->currentIndex());
  sound.apart = m_apart->isChecked();
  sound.cents = m_transpose->value() * kCentsOfHalfTone;
  sound.silent = 0;
  for (std::size_t i = 0; i < m_strings.size(); ++i)
    if (m_strings[i]->isChecked()) sound.silent |= 2U << i;
  m_player.mix().set(sound);
}

bool PracticePanel::takeKey(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Space:
      m_player.toggle();
      return true;
    case Qt::Key_Left:
      m_player.skipBars(-1);
      return true;
    case Qt::Key_Right:
      m_player.skipBars(1);
      return true;
    case Qt::Key_Up:
      m_player.setSpeed(m_player.speed() + kSpeedStep);
      return true;
    case Qt::Key_Down:
      m_player.setSpeed(m_player.speed() - kSpeedStep);
      return true;
    default:
      return false;
  }
}

void PracticePanel::keyPressEvent(QKeyEvent* event) {
  if (event->modifiers() != Qt::NoModifier || !takeKey(*event)) QWidget::keyPressEvent(event);
}

/// The necks only show: a click on them gives the keys to the panel.
bool PracticePanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::MouseButtonPress) return QWidget::eventFilter(watched, event);
  setFocus(Qt::MouseFocusReason);
  return true;
}

}  // namespace korvel::ui
