// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sound/PlayerBar.h"

#include <QLabel>
#include <QPainter>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <QToolButton>
#include <chrono>
#include <cmath>
#include <utility>

#include "model/instruments/QBTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Synthesizers.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/sound/PlayerIcons.h"
#include "workflow/arranging/guided/Practice.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

constexpr int kPercent = 100;
constexpr double kClicksAsTheyCome = 70;
// Widths of sliders, in letters.
constexpr int kLongSlider = 6;
constexpr int kShortSlider = 4;
constexpr int kSecondsOfMinute = 60;
/// How late the place may be told.
constexpr std::chrono::milliseconds kWatch{50};
/// After the last change of a speed or a sound it is remembered.
constexpr std::chrono::milliseconds kSettled{1000};

QString clock(double seconds) {
  const int whole = static_cast<int>(seconds);
  return QString("%1:%2")
      .arg(whole / kSecondsOfMinute)
      .arg(whole % kSecondsOfMinute, 2, 10, QChar('0'));
}

/// What a button does, below its name.
void tellOf(QAction* action, const QString& what) {
  action->setToolTip(action->text() + '\n' + what);
}

/// An icon that does nothing.
class Picture final : public QWidget {
 public:
  explicit Picture(QIcon icon) : m_icon(std::move(icon)) {
    const int side = fontMetrics().height() + 2;
    setFixedSize(side, side);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    m_icon.paint(&painter, rect());
  }

 private:
  QIcon m_icon;
};

}  // namespace

PlayerBar::PlayerBar(QWidget* parent)
    : QToolBar(tr("Player"), parent),
      m_loop(new QLabel),
      m_position(new QLabel),
      m_player(QBSession::session(), *this, [this] { return newPlayer(); }),
      m_mix(m_player) {
  setObjectName("player");
  setToolButtonStyle(Qt::ToolButtonIconOnly);
  m_play = addAction(playIcon(), tr("Play"), this, &PlayerBar::play);
  m_stop = addAction(stopIcon(), tr("Stop"), this, &PlayerBar::stop);
  m_loop->setObjectName("loop");
  m_position->setAccessibleName(tr("Position"));
  addWidget(m_position);
  addSeparator();
  addWidget(m_loop);
  m_resetLoop = addAction(resetLoopIcon(), tr("Reset Loop"), this, &PlayerBar::resetLoopWanted);
  addSeparator();
  addSpeed();
  addMix();
  addVolume();
  addMetronome();
  m_sound = addAction(soundIcon(), tr("Sound ..."), this, &PlayerBar::settingsWanted);
  m_watch.setInterval(kWatch);
  connect(&m_watch, &QTimer::timeout, this, [this] { m_player.followSound(); });
  for (auto* button : findChildren<QToolButton*>()) {
    button->setFocusPolicy(Qt::TabFocus);
    if (!button->text().isEmpty()) continue;
    button->setAccessibleName(tr("More"));  // where the bar is narrow
    button->setIcon(moreIcon());            // the style's is black in dark themes, too
  }
  m_remembering.setSingleShot(true);
  connect(&m_remembering, &QTimer::timeout, this, &PlayerBar::remember);
  m_player.speedChanged();
  showPosition("  0");
  showLoop({});
  showTempo(0);
  unlockAll();
}

PlayerBar::~PlayerBar() = default;

void PlayerBar::addSpeed() {
  addWidget(new QLabel(tr("Speed") + ' '));
  m_speed = addSlider(tr("Speed"), kSlowest, kFastest, kPercent, kLongSlider);
  connect(m_speed, &QSlider::valueChanged, this,
          [this](int percent) { setRate(static_cast<double>(percent) / kPercent); });
  m_beats = new QSpinBox;
  m_beats->setAccessibleName(tr("Beats a minute"));
  m_beats->setToolTip(tr("Beats a minute"));
  m_beats->setKeyboardTracking(false);
  connect(m_beats, &QSpinBox::valueChanged, this, [this](int beats) { setRate(beats / m_tempo); });
  m_ofBeats.push_back(addWidget(m_beats));
  m_percent = new QLabel;
  m_share = addWidget(m_percent);
}

void PlayerBar::addVolume() {
  addWidget(new Picture(volumeIcon()));
  m_volume = addSlider(tr("Volume"), 0, kPercent, Preferences().volume(), kShortSlider);
  connect(m_volume, &QSlider::valueChanged, this, [this](int value) {
    Preferences().setVolume(value);
    applyVolume();
  });
}

QAction* PlayerBar::addSwitch(const QIcon& icon, const QString& title) {
  QAction* action = addAction(icon, title);
  action->setCheckable(true);
  return action;
}

void PlayerBar::addMix() {
  const auto percent = [this] {
    return static_cast<int>(std::lround(m_mix.sound().mix * kPercent));
  };
  addWidget(new QLabel(' ' + tr("Recording") + ' '));
  QSlider* mix = addSlider(tr("Recording or guitar"), 0, kPercent, percent(), kShortSlider);
  mix->setToolTip(tr("Left the recording is heard, right the guitar, in the middle both"));
  addWidget(new QLabel(' ' + tr("Guitar") + ' '));
  connect(mix, &QSlider::valueChanged, this,
          [this](int value) { m_mix.setMix(static_cast<double>(value) / kPercent); });
  connect(&m_mix, &SoundMix::changed, mix, [this, mix, percent] {
    noteChange();
    const QSignalBlocker asItIs(mix);
    mix->setValue(percent());
  });
}

QSlider* PlayerBar::addSlider(const QString& title, int least, int most, int value, int letters) {
  auto* slider = new QSlider(Qt::Horizontal);
  slider->setRange(least, most);
  slider->setValue(value);
  slider->setPageStep(most / 10);
  slider->setAccessibleName(title);
  slider->setToolTip(title);
  slider->setFixedWidth(letters * fontMetrics().horizontalAdvance('m'));
  addWidget(slider);
  return slider;
}

void PlayerBar::addMetronome() {
  addSeparator();
  m_metronome = addSwitch(metronomeIcon(), tr("Metronome"));
  connect(m_metronome, &QAction::toggled, this, [this](bool on) {
    Preferences().setMetronome(on);
    m_player.setMetronome(on);
  });
  m_metronome->setChecked(Preferences().metronome());
  m_clicks = addSlider(tr("Clicks"), 0, kPercent, Preferences().clickVolume(), kShortSlider);
  const auto setClicks = [this](int value) { m_player.setClickVolume(value / kClicksAsTheyCome); };
  connect(m_clicks, &QSlider::valueChanged, this, [setClicks](int value) {
    Preferences().setClickVolume(value);
    setClicks(value);
  });
  setClicks(m_clicks->value());
  m_countIn = addSwitch(countInIcon(), tr("Count-in"));
  connect(m_countIn, &QAction::toggled, this, [this](bool on) {
    Preferences().setCountIn(on);
    m_player.setCountIn(on);
  });
  tellOf(m_countIn, tr("A bar of clicks, or four, before what is played"));
  m_countIn->setChecked(Preferences().countIn());
  m_strict = addSwitch(strictTempoIcon(), tr("Strict tempo"));
  connect(m_strict, &QAction::toggled, this, [this](bool on) {
    Preferences().setStrictTempo(on);
    m_player.setStrict(on);
  });
  tellOf(m_strict, tr("Not faster here and slower there, as the recording went"));
  m_strict->setChecked(Preferences().strictTempo());
  m_ofBeats.push_back(m_strict);
}

// ---- what the user does

void PlayerBar::play() {
  const QBSong* song = QBSession::session().activeSong();
  if (!song || song->chords().empty()) return emit refused(tr("Choose a song with chords first"));
  m_player.play();
}

void PlayerBar::practise(const Practice& practice) {
  m_speed->setValue(practice.speed);
  m_countIn->setChecked(practice.countIn);
  m_metronome->setChecked(practice.metronome);
  play();
}

void PlayerBar::stop() { m_player.stop(); }

void PlayerBar::setSpeed(int percent) { m_speed->setValue(percent); }

/// What plays keeps the controls until it ends.
void PlayerBar::setSong(QBSong* song) {
  m_shown = song;
  if (!m_player.isPlaying()) standFor(song);
}

void PlayerBar::standFor(QBSong* song) {
  remember();
  const bool isThere = m_controlled && !m_controlled->isDeleted();
  if (song == m_controlled) return;
  const bool hadOwn = isThere && !m_controlled->practice().empty();
  m_controlled = song;
  const double rate = m_mix.recall(song);
  if (hadOwn || (song && !song->practice().empty())) setRate(rate);
  m_practised = false;
}

void PlayerBar::noteChange() {
  m_practised = true;
  m_remembering.start(kSettled);
}

/// What is not remembered yet when the program dies is lost.
void PlayerBar::remember() {
  const bool isThere = m_controlled && !m_controlled->isDeleted();
  if (isThere && m_practised) m_mix.remember(*m_controlled, m_rate);
  m_practised = false;
}

void PlayerBar::toggle() { m_player.isPlaying() ? stop() : play(); }

/// Slider and beats follow each other.
void PlayerBar::setRate(double rate) {
  if (rate != m_rate) noteChange();
  m_rate = rate;
  const QSignalBlocker asItIs(m_speed);
  m_speed->setValue(static_cast<int>(std::lround(rate * kPercent)));
  showBeats();
  m_player.speedChanged();
}

void PlayerBar::showBeats() {
  const QSignalBlocker asItIs(m_beats);
  m_beats->setValue(static_cast<int>(std::lround(m_tempo * m_rate)));
}

std::unique_ptr<platform::MusicPlayer> PlayerBar::newPlayer() {
  const Preferences preferences;
  auto player = std::make_unique<platform::MusicPlayer>(
      platform::AudioSystem::main(), preferences.output().toStdString(), newSynthesizer());
  m_sounding = player.get();
  applyVolume();
  return player;
}

void PlayerBar::applyVolume() {
  if (m_sounding) m_sounding->setVolume(static_cast<float>(m_volume->value()) / kPercent);
}

// ---- what the player shows

void PlayerBar::setLocked(bool locked) {
  // The button that may be pressed next keeps the focus.
  QAction* next = locked ? m_stop : m_play;
  next->setEnabled(true);
  if (widgetForAction(locked ? m_play : m_stop)->hasFocus()) widgetForAction(next)->setFocus();
  for (QAction* action : {m_play, m_resetLoop, m_sound}) action->setEnabled(!locked);
  m_strict->setEnabled(!locked);
  m_stop->setEnabled(locked);
  tellMoved();
}

/// Once the session and its views know as well.
void PlayerBar::tellMoved() {
  QMetaObject::invokeMethod(this, &PlayerBar::moved, Qt::QueuedConnection);
}

void PlayerBar::lockMIDI() {
  setLocked(true);
  m_watch.start();
}

void PlayerBar::unlockAll() {
  if (std::exchange(m_sounding, nullptr)) standFor(m_shown);
  m_watch.stop();
  setLocked(false);
}

void PlayerBar::showLoop(const LoopRange& loop) {
  const auto end = [](int position) {
    return position == -1 ? QString("…") : QString::number(position);
  };
  const bool none = loop.from == -1 && loop.to == -1;
  m_loop->setText(none ? tr("No loop") : tr("Loop %1–%2").arg(end(loop.from), end(loop.to)));
}

void PlayerBar::showPosition(const std::string& percent) {
  const QString share = toText(percent) + " %";
  m_position->setText(' ' + (song() ? timeText() + "  " : QString()) + share + ' ');
  m_position->setAccessibleDescription(share.trimmed() + ", " + timeText());
  tellMoved();
}

/// Of the recording, however fast it is played.
QString PlayerBar::timeText() const {
  return clock(m_player.secondsHeard()) + " / " + clock(m_player.secondsOfSong());
}

void PlayerBar::showSpeed(const std::string& percent) {
  m_percent->setText(toText(percent) + " % ");
  emit speedShown(speed());
}

void PlayerBar::showTempo(double beatsPerMinute) {
  m_tempo = beatsPerMinute;
  for (QAction* action : m_ofBeats) action->setVisible(m_tempo > 0);
  m_share->setVisible(m_tempo <= 0);
  const QSignalBlocker asItIs(m_beats);
  const auto at = [this](int percent) {
    return static_cast<int>(std::lround(m_tempo * percent / kPercent));
  };
  m_beats->setSuffix(tr(" of %1", "beats a minute of so many").arg(at(kPercent)));
  m_beats->setRange(at(kSlowest), at(kFastest));
  showBeats();
}

void PlayerBar::showProblem(const platform::UserText& problem) {
  emit refused(translated(problem));
}

int PlayerBar::speed() const { return m_speed->value(); }

int PlayerBar::fullSpeed() const { return kPercent; }

}  // namespace korvel::ui
