// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sound/PracticePanel.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <algorithm>
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
constexpr int kPanelMargin = 4;  // in pixels

QSpinBox* numberBox(int least, int most, int value, const QString& name, const QString& suffix) {
  auto* box = new QSpinBox;
  box->setRange(least, most);
  box->setValue(value);
  box->setAccessibleName(name);
  box->setSuffix(suffix);
  return box;
}

/// As wide as what it scrolls up and down.
class ControlColumn final : public QScrollArea {
 public:
  explicit ControlColumn(QWidget* content) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    setWidgetResizable(true);
    setWidget(content);
  }
  QSize sizeHint() const override {
    const QSize wanted = widget()->sizeHint();
    return {wanted.width() + verticalScrollBar()->sizeHint().width(), wanted.height()};
  }
  QSize minimumSizeHint() const override { return {sizeHint().width(), 0}; }
};

bool isReturnKey(const QEvent& keyPress) {
  const int key = static_cast<const QKeyEvent&>(keyPress).key();
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// Screen readers tell of a combo box by its label.
QLabel* labelOf(const QString& text, QWidget& control) {
  auto* label = new QLabel(text);
  label->setBuddy(&control);
  return label;
}

}  // namespace

PracticePanel::PracticePanel(PlayerBar& player, QWidget* parent)
    : QWidget(parent),
      m_player(player),
      m_controls(new PracticeControls(player)),
      m_neck(new FretboardView),
      m_keys(new QLabel),
      m_column(newColumn()) {
  setAccessibleName(tr("Practise"));
  setFocusPolicy(Qt::StrongFocus);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kPanelMargin, kPanelMargin, kPanelMargin, kPanelMargin);
  row->addWidget(m_column);
  row->addWidget(newNeck(), 1);
  keepKeys();
  showKeys();
  connect(&m_player.mix(), &SoundMix::changed, this, &PracticePanel::showSound);
  connect(m_controls, &PracticeControls::loopWanted, this, [this](int first, int last) {
    setFocus();
    emit loopWanted(first, last);
  });
  showSound();
}

QScrollArea* PracticePanel::newColumn() {
  auto* content = new QWidget;
  m_columns = new QBoxLayout(QBoxLayout::TopToBottom, content);
  m_columns->setContentsMargins(0, 0, 0, 0);
  m_columns->addWidget(m_controls, 0, Qt::AlignTop);
  m_columns->addWidget(newControls(), 1);
  return new ControlColumn(content);
}

QWidget* PracticePanel::newControls() {
  auto* controls = new QWidget;
  auto* rows = new QGridLayout(controls);
  rows->setContentsMargins(0, 0, 0, 0);
  addPart(*rows);
  addRamp(*rows);
  addSound(*rows);
  rows->setRowStretch(rows->rowCount(), 1);
  rows->setColumnStretch(1, 1);
  return controls;
}

QWidget* PracticePanel::newNeck() {
  m_neck->setAccessibleName(tr("Chord and next chord"));
  m_neck->setFocusPolicy(Qt::NoFocus);
  m_neck->installEventFilter(this);
  m_keys->setAlignment(Qt::AlignCenter);
  m_keys->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  auto* place = new QWidget;
  auto* rows = new QVBoxLayout(place);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(kPanelMargin / 2);
  rows->addWidget(m_neck, 1);
  rows->addWidget(m_keys);
  return place;
}

/// A click on anything but a number leaves the keys where they are.
void PracticePanel::keepKeys() {
  for (QWidget* control : m_column->findChildren<QWidget*>()) {
    const bool isNumber = qobject_cast<QAbstractSpinBox*>(control);
    const bool isClicked = qobject_cast<QAbstractButton*>(control) ||
                           qobject_cast<QComboBox*>(control) || qobject_cast<QSlider*>(control);
    if (isClicked) control->setFocusPolicy(Qt::TabFocus);
    if (isClicked || isNumber) control->installEventFilter(this);
  }
}

void PracticePanel::addPart(QGridLayout& rows) {
  m_voice = new QComboBox;
  m_voice->addItems({tr("Nothing"), tr("Melody"), tr("Second voice"), tr("Third voice"),
                     tr("Fourth voice"), tr("Fifth voice"), tr("Bass"), tr("All but the melody")});
  m_voice->setAccessibleName(tr("Voice that is not heard"));
  m_voice->setToolTip(
      tr("The guitar leaves out this voice, from the highest, the melody, to the bass"));
  connect(m_voice, &QComboBox::currentIndexChanged, this, &PracticePanel::change);
  rows.addWidget(labelOf(tr("My part, silent"), *m_voice), 0, 0);
  rows.addWidget(m_voice, 0, 1);
  rows.addWidget(newStrings(), 1, 0, 1, 2);
}

QWidget* PracticePanel::newStrings() {
  auto* line = new QWidget;
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kPanelMargin);
  line->setToolTip(tr("The guitar leaves out what is played on these strings"));
  row->addWidget(new QLabel(tr("and strings")), 1);
  for (int string = 1; string <= kStringsOfGuitar; ++string) {
    auto* box = new QCheckBox(QString::number(string));
    box->setAccessibleName(tr("String %1 is not heard").arg(string));
    connect(box, &QCheckBox::toggled, this, &PracticePanel::change);
    row->addWidget(box);
    m_strings.push_back(box);
  }
  return line;
}

void PracticePanel::addRamp(QGridLayout& rows) {
  m_faster = new QCheckBox(tr("Faster and faster"));
  m_faster->setToolTip(tr("A loop begins slower and gets faster, up to the speed that is set"));
  m_from = numberBox(10, 100, 60, tr("Begins at"), " %");
  m_step = numberBox(1, 50, 5, tr("Faster by"), " %");
  m_rounds = numberBox(1, 16, 2, tr("After so many rounds"), {});
  rows.addWidget(m_faster, 2, 0);
  rows.addWidget(m_from, 2, 1);
  rows.addWidget(new QLabel(tr("then")), 3, 0, Qt::AlignRight);
  rows.addWidget(m_step, 3, 1);
  rows.addWidget(new QLabel(tr("more after so many rounds")), 4, 0, Qt::AlignRight);
  rows.addWidget(m_rounds, 4, 1);
  m_between = new QComboBox;
  m_between->addItems({tr("Nothing"), tr("A silent bar"), tr("A bar of clicks")});
  m_between->setAccessibleName(tr("Between rounds"));
  rows.addWidget(labelOf(tr("Between rounds"), *m_between), 5, 0);
  rows.addWidget(m_between, 5, 1);
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
  rows.addWidget(m_apart, 6, 0, 1, 2);
  rows.addWidget(new QLabel(tr("Recording higher by")), 7, 0);
  rows.addWidget(m_transpose, 7, 1);
  connect(m_apart, &QCheckBox::toggled, this, &PracticePanel::change);
  connect(m_transpose, &QDoubleSpinBox::valueChanged, this, &PracticePanel::change);
}

// ---- what is shown

void PracticePanel::setSong(QBSong* song) {
  m_song = song;
  m_chord = -1;
  if (isVisible()) m_controls->setSong(song);
  m_neck->setSong(song);
}

/// While it is hidden it takes no time of anybody's.
void PracticePanel::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  m_controls->setSong(m_song);
  showChord(m_chord);
  if (!event->spontaneous() && isActiveWindow()) setFocus();
}

void PracticePanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  int both = 0;
  for (int i = 0; i < m_columns->count(); ++i) both += m_columns->itemAt(i)->sizeHint().width();
  const bool isWide = width() > both + m_neck->sizeHint().width();
  m_columns->setDirection(isWide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  m_column->updateGeometry();
}

void PracticePanel::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  showKeys();
}

void PracticePanel::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  showKeys();
}

void PracticePanel::showKeys() {
  m_keys->setText(hasFocus() ? tr("Space plays, ← → go by bars, ↑ ↓ change the speed")
                             : tr("Click here to play by keys or a pedal"));
}

void PracticePanel::showChord(int chord) {
  m_chord = chord;
  if (!isVisible()) return;
  m_neck->showNext(chordAfter(chord));
  m_neck->showChord(chord);
}

/// The next one that is struck, at the end of a loop its first; -1 at the end of the song.
int PracticePanel::chordAfter(int chord) const {
  if (!m_song || chord < 0) return -1;
  const int next = struckFrom(chord + 1);
  const QBChord* last = m_song->toChord();
  const auto& chords = m_song->allChords();
  const auto positionOf = [&](int of) { return chords[static_cast<std::size_t>(of)]->position(); };
  const bool isInLoop =
      last && chord < static_cast<int>(chords.size()) && positionOf(chord) <= last->position();
  if (!isInLoop || (next >= 0 && positionOf(next) <= last->position())) return next;
  const QBChord* first = m_song->fromChord();
  const auto begin = std::ranges::find(chords, first, [](const auto& of) { return of.get(); });
  return struckFrom(begin == chords.end() ? 0 : static_cast<int>(begin - chords.begin()));
}

/// That chord or the first behind it that sounds.
int PracticePanel::struckFrom(int chord) const {
  const auto& chords = m_song->allChords();
  for (int next = chord; next < static_cast<int>(chords.size()); ++next) {
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
    m_strings[i]->setChecked((sound.silent.strings & (2U << i)) != 0);
  m_voice->setCurrentIndex(static_cast<int>(sound.silent.voice));
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
  sound.silent = {0, static_cast<OwnVoice>(m_voice->currentIndex())};
  for (std::size_t i = 0; i < m_strings.size(); ++i)
    if (m_strings[i]->isChecked()) sound.silent.strings |= 2U << i;
  m_player.mix().set(sound);
}

bool PracticePanel::takeKey(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Space:
      m_player.toggle();
      return true;
    case Qt::Key_Left:
    case Qt::Key_PageUp:
      m_player.skipBars(-1);
      return true;
    case Qt::Key_Right:
    case Qt::Key_PageDown:
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

/// The neck only shows: a click on it gives the keys to the panel. So does Return in a number. The
/// wheel scrolls, and changes only what has the focus.
bool PracticePanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_neck && event->type() == QEvent::MouseButtonPress) {
    setFocus(Qt::MouseFocusReason);
    return true;
  }
  if (event->type() == QEvent::Wheel && !static_cast<QWidget*>(watched)->hasFocus()) {
    event->ignore();
    return true;
  }
  auto* number = qobject_cast<QAbstractSpinBox*>(watched);
  if (!number || event->type() != QEvent::KeyPress || !isReturnKey(*event))
    return QWidget::eventFilter(watched, event);
  number->interpretText();
  setFocus();
  return true;
}

}  // namespace korvel::ui
