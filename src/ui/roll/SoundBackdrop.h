// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <atomic>
#include <memory>
#include <string>
#include <vector>

#include "analysis/picture/SoundPicture.h"
#include "platform/persistence/Ref.h"
#include "ui/roll/RollScale.h"
#include "workflow/playing/RecordedTime.h"

class QPainter;

namespace korvel {
class QBSong;
class SongRecording;
}  // namespace korvel

namespace korvel::ui {

struct Shades;

/// The recording behind a song's roll: its spectrogram in the lanes and its wave above them, as far
/// as they are there. What is missing comes later.
class SoundBackdrop final : public QObject {
  Q_OBJECT

 public:
  explicit SoundBackdrop(QObject* parent = nullptr);
  ~SoundBackdrop() override;

  /// The song as it is now; none takes the picture away.
  void setSong(QBSong* song);
  const RecordedTime& time() const { return m_time; }
  /// Height of the wave, or of the line that says why there is none, in lines of text; 0 for a song
  /// without a recording.
  double waveLines() const;
  /// One line, of why there is no picture or where the song differs from it; empty when nothing is
  /// wrong.
  QString trouble() const;

  /// What of it lies in that part of the viewport, and has the rest of the viewport made.
  void paint(QPainter& painter, const QRect& part, const RollScale& scale, const Shades& shades);

 signals:
  /// There is more to be seen, or trouble.
  void changed();

 private:
  using Picture = SoundPicture;

  QString differenceOf(QBSong& song) const;
  void setRecording(const SongRecording* recording);
  bool hasComeBack() const;
  void want(const RollScale& scale);
  int levelFor(const RollScale& scale) const;
  double secondsAt(const RollScale& scale, double x) const;
  double samplesOfPixel(const RollScale& scale) const;
  Picture::Stretch stretchOf(const RollScale& scale, int level, double left, double right) const;
  void paintSpectrum(QPainter& painter, const QRectF& area, const RollScale& scale,
                     const Shades& shades);
  void paintWave(QPainter& painter, const QRectF& area, const RollScale& scale,
                 const Shades& shades);
  void paintPeaks(QPainter& painter, const QRectF& area, const RollScale& scale);
  bool paintSamples(QPainter& painter, const QRectF& area, const RollScale& scale);
  void paintTrouble(QPainter& painter, const RollScale& scale, const Shades& shades) const;

  platform::Ref<const SongRecording> m_recording;
  std::string m_path;  ///< Of its file, which may be found elsewhere.
  RecordedTime m_time;
  QString m_difference;
  QTimer m_soon;  ///< Tells of what has come since the last time.
  std::atomic<bool> m_told = false;
  std::unique_ptr<Picture> m_picture;  ///< Ends first, as its thread tells of what has come.
};

}  // namespace korvel::ui
