// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QToolBar>
#include <optional>
#include <vector>

#include "platform/persistence/Ref.h"
#include "ui/sound/SoundMix.h"
#include "workflow/playing/QBPlayerViewController.h"

class QLabel;
class QSlider;
class QSpinBox;

namespace korvel {
struct Practice;
}

namespace korvel::ui {

/// Plays the song that is shown, or its loop. The user may turn to another song meanwhile. As wide
/// as small windows are: buttons are icons, which say their names under the pointer.
class PlayerBar final : public QToolBar, public PlayerControls {
  Q_OBJECT

 public:
  // Per cent.
  static constexpr int kSlowest = 25;
  static constexpr int kFastest = 150;

  explicit PlayerBar(QWidget* parent = nullptr);
  ~PlayerBar() override;

  PlayerView& controller() { return m_player; }
  /// What is heard of a song, for other controls of it.
  SoundMix& mix() { return m_mix; }
  /// The song that is shown now: it goes on as it was practised last.
  void setSong(QBSong* song);
  void setSpeed(int percent);
  QAction& metronome() { return *m_metronome; }
  QAction& countIn() { return *m_countIn; }
  void skipBars(int bars) { m_player.skipBars(bars); }
  /// The song that plays, or none.
  QBSong* song() const { return m_player.song(); }
  bool plays(const QBSong* song) const { return m_player.plays(song); }
  /// The second of the recording that is heard; none when none plays, and in strict tempo.
  std::optional<double> recordedSeconds() const { return m_player.recordedSeconds(); }
  /// Plays at its speed, with its clicks.
  void practise(const Practice& practice);

  void lockMIDI() override;
  void unlockAll() override;
  void showLoop(const LoopRange& loop) override;
  void showPosition(const std::string& percent) override;
  void showSpeed(const std::string& percent) override;
  /// What belongs to songs on beats shows for these only.
  void showTempo(double beatsPerMinute) override;
  void showProblem(const platform::UserText& problem) override;
  void showNotice(const platform::UserText& notice) override { showProblem(notice); }
  int speed() const override;
  int fullSpeed() const override;
  /// A speed in beats a minute is no whole number of per cent.
  float rate() const override { return static_cast<float>(m_rate); }

 public slots:
  void play();
  void stop();
  void toggle();

 signals:
  /// Another chord is heard, or playing has begun or ended.
  void moved();
  /// Of the recording's.
  void speedShown(int percent);
  void resetLoopWanted();
  void settingsWanted();
  /// One line with what to do.
  void refused(const QString& text);

 private:
  void addSpeed();
  void addVolume();
  QAction* addSwitch(const QIcon& icon, const QString& title);
  void addMix();
  void standFor(QBSong* song);
  void setRate(double rate);
  void noteChange();
  void remember();
  void showBeats();
  QSlider* addSlider(const QString& title, int least, int most, int value, int letters);
  std::unique_ptr<platform::MusicPlayer> newPlayer();
  void applyVolume();
  void addMetronome();
  QString timeText() const;
  void setLocked(bool locked);
  void tellMoved();

  QAction* m_play;
  QAction* m_stop;
  QAction* m_resetLoop;
  QAction* m_sound;
  QAction* m_metronome = nullptr;
  QAction* m_countIn = nullptr;
  QAction* m_strict = nullptr;
  QLabel* m_loop;
  QLabel* m_position;
  QLabel* m_percent = nullptr;
  QSlider* m_speed = nullptr;
  QSpinBox* m_beats = nullptr;      ///< The speed in beats a minute.
  std::vector<QAction*> m_ofBeats;  ///< What shows for songs on beats only.
  QAction* m_share = nullptr;       ///< The speed in per cent, which shows for the others.
  double m_rate = 1;
  double m_tempo = 0;  ///< Beats a minute at full speed; 0 without.
  QSlider* m_volume = nullptr;
  QSlider* m_clicks = nullptr;                  ///< How loud the metronome is.
  platform::MusicPlayer* m_sounding = nullptr;  ///< The controller's, while it plays.
  QTimer m_watch;                               ///< Runs while it plays.
  QBPlayerViewController m_player;
  SoundMix m_mix;
  platform::Ref<QBSong> m_shown;
  platform::Ref<QBSong> m_controlled;  ///< What speed and sound stand for.
  bool m_practised = false;            ///< They were changed since.
  QTimer m_remembering;                ///< Runs from a change until nobody changes any more.
};

}  // namespace korvel::ui
