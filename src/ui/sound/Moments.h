// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include "platform/persistence/Ref.h"
#include "workflow/playing/MomentPlayer.h"

namespace korvel {
class QBHold;
}

namespace korvel::ui {

class SoundMix;

/// "What was this?": plays a moment of the shown song's recording once, or a note of the guitar.
class Moments final : public QObject {
  Q_OBJECT

 public:
  /// The mix, which has what the recording is transposed by, outlives this.
  explicit Moments(const SoundMix& mix, QObject* parent = nullptr);
  ~Moments() override;

  void setSong(QBSong* song);
  void stop() { m_player.stop(); }
  /// The moment of a chord that was only clicked: no line is said where it cannot be heard.
  void touch(int chord);

 public slots:
  /// second: of the recording; what is shorter than can be told is heard a little longer.
  void listenAt(double second, double seconds);
  /// The same of a chord, by its index in the song's `allChords`.
  void listenTo(int chord);
  /// note: of MIDI.
  void strike(int note, double seconds);
  /// All tones of a chord.
  void strikeChord(int chord);
  /// The one on that string; all where there is none.
  void strikeTone(int chord, int string);

 signals:
  /// One line with what to do.
  void refused(const QString& text);
  /// What was touched could not be heard.
  void unheard();

 private:
  /// None behind the song's end.
  const QBHold* holdOf(int chord) const;
  void tell(const platform::UserText& problem);

  const SoundMix& m_mix;
  platform::Ref<QBSong> m_song;
  MomentPlayer m_player;
};

}  // namespace korvel::ui
