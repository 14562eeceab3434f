// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/guides/PractiseDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QSpinBox>
#include <algorithm>

#include "model/songs/QBSong.h"

namespace korvel::ui {
namespace {

/// Of a passage that nobody has chosen yet: a few seconds.
constexpr int kChordsAtFirst = 16;

}  // namespace

PractiseDialog::PractiseDialog(QBSong& song, const Practice& before, int slowest, int fastest,
                               QWidget* parent)
    : GuideDialog(song, tr("Practise"), tr("&Begin"), parent),
      m_part(addChoice(tr("&Play"), {tr("The whole song"), tr("A passage, again and again")})),
      m_countIn(new QCheckBox(tr("&Count-in"))),
      m_metronome(new QCheckBox(tr("&Metronome"))) {
  const int chords = static_cast<int>(song.allChords().size());
  const auto loop = passageOf(song);
  const ChordSpan passage = loop.value_or(ChordSpan{0, std::min(chords, kChordsAtFirst) - 1});
  m_part->setCurrentIndex(loop ? 1 : 0);
  m_first = addNumber(tr("&From chord"), 1, chords, passage.first + 1);
  m_last = addNumber(tr("&To chord"), 1, chords, passage.last + 1);
  m_speed = addNumber(tr("&Speed"), slowest, fastest, before.speed);
  m_speed->setSuffix(" %");
  for (auto* box : {m_countIn, m_metronome}) form().addRow(box);
  m_countIn->setChecked(before.countIn);
  m_metronome->setChecked(before.metronome);
  const auto enableEnds = [this] {
    for (QSpinBox* end : {m_first, m_last}) end->setEnabled(m_part->currentIndex() == 1);
  };
  connect(m_part, &QComboBox::currentIndexChanged, this, enableEnds);
  enableEnds();
  choiceChanged();
}

QSpinBox* PractiseDialog::addNumber(const QString& title, int least, int most, int value) {
  auto* box = new QSpinBox;
  box->setRange(least, most);
  box->setValue(value);
  form().addRow(title, box);
  connect(box, &QSpinBox::valueChanged, this, &PractiseDialog::choiceChanged);
  return box;
}

Practice PractiseDialog::practice() const {
  Practice practice{.passage = std::nullopt,
                    .speed = m_speed->value(),
                    .countIn = m_countIn->isChecked(),
                    .metronome = m_metronome->isChecked()};
  const auto [first, last] = std::minmax({m_first->value(), m_last->value()});
  if (m_part->currentIndex() == 1) practice.passage = ChordSpan{first - 1, last - 1};
  return practice;
}

}  // namespace korvel::ui
