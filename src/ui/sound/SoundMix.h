// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include "platform/persistence/Ref.h"
#include "workflow/playing/PlayedSound.h"

namespace korvel {
class QBPlayerViewController;
class QBSong;
}  // namespace korvel

namespace korvel::ui {

/// What is heard of a song, recording or guitar, and how its loop is practised: one value that all
/// controls of it show and change. Songs that were practised have their own, others what was chosen
/// last.
class SoundMix final : public QObject {
  Q_OBJECT

 public:
  /// The player outlives this.
  explicit SoundMix(QBPlayerViewController& player, QObject* parent = nullptr);

  const PlayedSound& sound() const;
  void set(const PlayedSound& sound);
  /// 0 the recording alone, 1 the guitar alone.
  void setMix(double mix);

  /// Goes over to what a song was practised with; answers its rate, 1 when it was not.
  double recall(const QBSong* song);
  /// For the next time that this song is shown.
  void remember(QBSong& song, double rate) const;

 signals:
  void changed();

 private:
  void apply(const PlayedSound& sound);

  QBPlayerViewController& m_player;
  PlayedSound m_usual;  ///< Of songs that have none of their own.
};

}  // namespace korvel::ui
