// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/loop/RunLoop.h"
#include "platform/persistence/Ref.h"

namespace korvel {

class QBAlbum;
class QBChord;
class QBChordAnalyser;
class QBSampleSource;
class QBSong;
class QBTabMatrix;

/// Drives an analyser over its source, step by step. The analyser writes into a scratch song that
/// lives from start to stop. Either a timer steps (live) or the caller does (files). Main thread.
class QBRecorder {
 public:
  explicit QBRecorder(QBAlbum* album);
  QBRecorder(std::shared_ptr<QBChordAnalyser> analyser, QBAlbum* album);
  QBRecorder(const QBRecorder&) = delete;
  QBRecorder& operator=(const QBRecorder&) = delete;
  virtual ~QBRecorder();

  /// Live: steps every 0.05 s until stop. Nothing happens while it runs already.
  void start(const std::string& title, float startTime);
  void stop();
  /// Stepped by the caller. The source is given up at the end, so a recorder records it once.
  void startWithoutTimer(const std::string& title, float startTime);
  void stopWithoutTimer();

  /// One step of the analysis: the chord that it completed, or none.
  virtual QBChord* nextStep();
  virtual QBChord* nextChord();
  /// Writes the recorder's own, still empty tablature.
  void saveTo(const std::filesystem::path& path) const;
  virtual void setVolume(float volume);
  virtual float getVolume() const;
  /// What the analyser writes into; none unless it is started.
  QBSong* scratchSong() const { return m_song; }

 protected:
  const std::shared_ptr<QBChordAnalyser>& analyser() const { return m_analyser; }
  /// The chord, if any, with harmony and groups of tones.
  static QBChord* completed(QBChord* chord);

 private:
  void begin();
  void dropScratchSong();

  std::unique_ptr<platform::RunLoop::Timer> m_timer;
  std::unique_ptr<QBTabMatrix> m_matrix;
  std::shared_ptr<QBChordAnalyser> m_analyser;
  std::shared_ptr<QBSampleSource> m_source;
  platform::Ref<QBSong> m_song;
  platform::Ref<QBAlbum> m_album;
};

}  // namespace korvel
