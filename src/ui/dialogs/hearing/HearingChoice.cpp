// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/hearing/HearingChoice.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSlider>
#include <QSpinBox>
#include <algorithm>
#include <cmath>

namespace korvel::ui {
namespace {

using precise::FingeringOptions;
using precise::Position;

constexpr double kSensitivitySteps = 100;

QSpinBox* fretBox(int least, int most, int value) {
  auto* box = new QSpinBox;
  box->setRange(least, most);
  box->setValue(value);
  return box;
}

}  // namespace

HearingChoice::HearingChoice(QFormLayout& form, const precise::Settings& settings)
    : QObject(form.parentWidget()),
      m_sensitivity(new QSlider(Qt::Horizontal)),
      m_position(new QComboBox),
      m_positionFret(fretBox(1, FingeringOptions::kMostFrets, settings.fingering.position.fret)),
      m_frets(fretBox(FingeringOptions::kFewestFrets, FingeringOptions::kMostFrets,
                      settings.fingering.frets)),
      m_capo(fretBox(0, FingeringOptions::kHighestCapo, settings.fingering.capo)) {
  m_sensitivity->setRange(0, static_cast<int>(kSensitivitySteps));
  m_sensitivity->setValue(static_cast<int>(std::lround(settings.sensitivity * kSensitivitySteps)));
  m_sensitivity->setToolTip(tr("How faint or doubtful a note may be"));
  for (const auto& [text, kind] : {std::pair(tr("Anywhere"), Position::Kind::anywhere),
                                   std::pair(tr("First frets"), Position::Kind::open),
                                   std::pair(tr("About fret"), Position::Kind::around)})
    m_position->addItem(text, static_cast<int>(kind));
  m_position->setAccessibleName(tr("Played at"));
  m_positionFret->setAccessibleName(tr("Fret that the hand stays about"));
  const auto ask = [this] {
    const int kind = m_position->currentData().toInt();
    m_positionFret->setEnabled(kind == static_cast<int>(Position::Kind::around));
  };
  connect(m_position, &QComboBox::currentIndexChanged, this, ask);
  m_position->setCurrentIndex(
      m_position->findData(static_cast<int>(settings.fingering.position.kind)));
  ask();
  m_capo->setSpecialValueText(tr("None"));
  auto* place = new QHBoxLayout;
  place->addWidget(m_position);
  place->addWidget(m_positionFret);
  form.addRow(tr("Se&nsitivity"), m_sensitivity);
  form.addRow(tr("&Played at"), place);
  form.addRow(tr("&Frets of the guitar"), m_frets);
  form.addRow(tr("&Capo at fret"), m_capo);
  static_cast<QLabel*>(form.labelForField(place))->setBuddy(m_position);
}

void HearingChoice::addConcertPitch(QFormLayout& form, double hertz) {
  constexpr double kLowest = 410;
  constexpr double kHighest = 470;
  m_concertA = new QDoubleSpinBox;
  m_concertA->setRange(kLowest, kHighest);
  m_concertA->setDecimals(0);
  m_concertA->setSuffix(" Hz");
  m_concertA->setToolTip(tr("A recording may lie half a semitone off; more only where you say so"));
  m_concertA->setValue(hertz);
  form.addRow(tr("A is tuned to"), m_concertA);
}

precise::Settings HearingChoice::settings() const {
  precise::Settings settings;
  if (m_concertA) settings.concertA = m_concertA->value();
  settings.sensitivity = m_sensitivity->value() / kSensitivitySteps;
  settings.fingering.frets = m_frets->value();
  settings.fingering.capo = m_capo->value();
  settings.fingering.position = {static_cast<Position::Kind>(m_position->currentData().toInt()),
                                 std::min(m_positionFret->value(), m_frets->value())};
  return settings;
}

}  // namespace korvel::ui
