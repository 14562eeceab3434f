// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>

#include "platform/persistence/Ref.h"

namespace korvel {
class DrawnNotes;
class QBSong;
class SongCorrections;
struct ToneIndex;
}  // namespace korvel

namespace korvel::ui {

class RollView;

/// Does to the song that is shown what its user wants in the roll.
class RollEdits final : public QObject {
  Q_OBJECT

 public:
  /// The roll outlives this.
  explicit RollEdits(RollView& roll, QObject* parent = nullptr);
  ~RollEdits() override;

  void setSong(QBSong* song);
  /// Nothing is edited meanwhile, as while the song plays.
  void setLocked(bool locked) { m_locked = locked; }

 signals:
  /// The song has changed, so that the views show an old state of it.
  void edited();
  /// One line with what to do.
  void refused(const QString& text);

 private:
  void drop(const ToneIndex& place, int note);
  void perform(const std::function<void()>& edit);
  void draw(const std::function<void(DrawnNotes&)>& edit);
  void correct(const std::function<void(SongCorrections&)>& edit);

  platform::Ref<QBSong> m_song;
  bool m_locked = false;
};

}  // namespace korvel::ui
