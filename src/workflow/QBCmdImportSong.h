// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "workflow/QBCmdAlbum.h"

namespace korvel {

class QBChordAnalyser;
class QBChordRecorder;
class QBMediaTrack;

/// Turns a media file into the chords and the tablature of a song. What is wrong with a file shows
/// in the log only; a file without sound leaves a song without chords and without tablature.
class QBCmdImportSong final : public QBCmdAlbum {
 public:
  QBCmdImportSong(std::shared_ptr<QBAlbumNode> album, std::string file, QBSong* newSong);
  ~QBCmdImportSong() override;

  /// Decodes the whole file.
  void prepare() override;
  void execute() override;
  /// One block of the file; stops the command when there is none left.
  void nextStep() override;
  void tearDown() override;
  /// Type and name without a blank between them: the form that the job list shows.
  std::string fullTitle() const override { return m_type + m_name; }

  /// Called after each block with the share of blocks read, 0..1.
  void onProgress(std::function<void(double)> listener) { m_listener = std::move(listener); }

 private:
  bool atEnd() const;
  void takeNextChord();

  std::string m_file;
  platform::Ref<QBSong> m_newSong;
  std::shared_ptr<QBMediaTrack> m_track;
  std::shared_ptr<QBChordAnalyser> m_analyser;
  std::unique_ptr<QBChordRecorder> m_recorder;
  std::function<void(double)> m_listener;
};

}  // namespace korvel
