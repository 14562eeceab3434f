// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sound/PracticeControls.h"

#include <QAction>
#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <algorithm>
#include <cmath>

#include "model/songs/QBSong.h"
#include "ui/sound/PlayerBar.h"

namespace korvel::ui {
namespace {

constexpr int kWholePercent = 100;

QHBoxLayout* rowIn(QWidget* widget) {
  auto* row = new QHBoxLayout(widget);
  row->setContentsMargins(0, 0, 0, 0);
  return row;
}

/// Two boxes for one thing.
void keepAlike(QAction& action, QCheckBox& box) {
  box.setChecked(action.isChecked());
  QObject::connect(&action, &QAction::toggled, &box, &QCheckBox::setChecked);
  QObject::connect(&box, &QCheckBox::toggled, &action, &QAction::setChecked);
}

}  // namespace

PracticeControls::PracticeControls(PlayerBar& player, QWidget* parent)
    : QWidget(parent), m_player(player), m_loop(newLoop()) {
  auto* form = new QFormLayout(this);
  form->setContentsMargins(0, 0, 0, 0);
  form->addRow(newMix());
  form->addRow(tr("Speed"), newSpeed());
  form->addRow(tr("Bars"), m_loop);
  setSong(nullptr);
}

QWidget* PracticeControls::newMix() {
  auto* line = new QWidget;
  auto* row = rowIn(line);
  auto* mix = new QSlider(Qt::Horizontal);
  mix->setRange(0, kWholePercent);
  mix->setAccessibleName(tr("Recording or guitar"));
  const auto show = [this, mix] {
    const QSignalBlocker asItIs(mix);
    mix->setValue(static_cast<int>(std::lround(m_player.mix().sound().mix * kWholePercent)));
  };
  connect(mix, &QSlider::valueChanged, this,
          [this](int value) { m_player.mix().setMix(static_cast<double>(value) / kWholePercent); });
  connect(&m_player.mix(), &SoundMix::changed, mix, show);
  show();
  row->addWidget(new QLabel(tr("Recording")));
  row->addWidget(mix, 1);
  row->addWidget(new QLabel(tr("Guitar")));
  return line;
}

QWidget* PracticeControls::newSpeed() {
  auto* line = new QWidget;
  auto* row = rowIn(line);
  auto* speed = new QSpinBox;
  speed->setRange(PlayerBar::kSlowest, PlayerBar::kFastest);
  speed->setSuffix(" %");
  speed->setAccessibleName(tr("Speed"));
  speed->setValue(m_player.speed());
  speed->setKeyboardTracking(false);
  connect(speed, &QSpinBox::valueChanged, &m_player, &PlayerBar::setSpeed);
  connect(&m_player, &PlayerBar::speedShown, speed, [speed](int percent) {
    const QSignalBlocker asItIs(speed);
    speed->setValue(percent);
  });
  auto* metronome = new QCheckBox(tr("Metronome"));
  auto* countIn = new QCheckBox(tr("Count-in"));
  keepAlike(m_player.metronome(), *metronome);
  keepAlike(m_player.countIn(), *countIn);
  row->addWidget(speed);
  row->addWidget(metronome);
  row->addWidget(countIn, 1);
  return line;
}

QWidget* PracticeControls::newLoop() {
  auto* line = new QWidget;
  auto* row = rowIn(line);
  m_first = new QSpinBox;
  m_first->setAccessibleName(tr("First bar of the loop"));
  m_last = new QSpinBox;
  m_last->setAccessibleName(tr("Last bar of the loop"));
  auto* loop = new QPushButton(tr("Loop These"));
  connect(loop, &QPushButton::clicked, this, &PracticeControls::loopBars);
  row->addWidget(m_first);
  row->addWidget(new QLabel("–"));
  row->addWidget(m_last);
  row->addWidget(loop, 1);
  return line;
}

void PracticeControls::setSong(QBSong* song) {
  m_song = song;
  m_isOld = true;
  if (isVisible() || !song) findBars();
}

void PracticeControls::showEvent(QShowEvent* event) {
  if (m_isOld) findBars();
  QWidget::showEvent(event);
}

void PracticeControls::findBars() {
  m_isOld = false;
  const bool isThere = m_song && !m_song->isDeleted();
  m_roll = isThere ? ToneRoll(*m_song) : ToneRoll();
  const int bars = static_cast<int>(m_roll.bars().size());
  const int first = m_roll.numberOfFirstBar();
  for (QSpinBox* box : {m_first, m_last}) box->setRange(first, std::max(first, first + bars - 1));
  m_loop->setEnabled(bars > 0);
  if (bars > 0 && (m_song->fromChord() || m_song->toChord())) showLoop();
}

void PracticeControls::showLoop() {
  m_first->setValue(barOf(m_song->fromChord(), m_first->minimum()));
  m_last->setValue(barOf(m_song->toChord(), m_last->maximum()));
}

int PracticeControls::barOf(const QBChord* chord, int otherwise) const {
  const auto& chords = m_song->allChords();
  const auto at = std::ranges::find(chords, chord, [](const auto& each) { return each.get(); });
  if (!chord || at == chords.end()) return otherwise;
  const auto& bars = m_roll.bars();
  const auto next = std::ranges::upper_bound(bars, static_cast<int>(at - chords.begin()));
  return m_roll.numberOfFirstBar() + std::max(0, static_cast<int>(next - bars.begin()) - 1);
}

void PracticeControls::loopBars() {
  const auto& bars = m_roll.bars();
  const auto [from, to] = std::minmax({m_first->value(), m_last->value()});
  const auto first = static_cast<std::size_t>(from - m_roll.numberOfFirstBar());
  const auto next = static_cast<std::size_t>(to - m_roll.numberOfFirstBar()) + 1;
  if (first >= bars.size()) return;
  emit loopWanted(bars[first], (next < bars.size() ? bars[next] : m_roll.chords()) - 1);
}

}  // namespace korvel::ui
