// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "analysis/precise/Settings.h"
#include "workflow/ImportDetection.h"
#include "workflow/QBCmdAlbum.h"

namespace korvel {

class QBChordAnalyser;
class QBRecorder;

/// Turns a media file into the chords and the tablature of a song. What is wrong with a file shows
/// in the log only; a file without sound leaves a song without chords and without tablature.
/// `stop` between two steps ends an import early, and leaves the song with the chords so far.
class QBCmdImportSong final : public QBCmdAlbum {
 public:
  QBCmdImportSong(std::shared_ptr<QBAlbumNode> album, std::string file, QBSong* newSong);
  ~QBCmdImportSong() override;

  /// Before `prepare`. Classic is what is chosen otherwise, which needs no settings.
  void setDetection(ImportDetection detection, const precise::Settings& settings = {});

  /// Decodes the whole file for the classic detection, and opens it for the precise one.
  void prepare() override;
  void execute() override;
  /// One block of the file. Of the precise detection a few hundredths of a second of listening or,
  /// afterwards, a hundred blocks. Stops the command when there is nothing left to do.
  void nextStep() override;
  void tearDown() override;
  /// Type and name without a blank between them: the form that the job list shows.
  std::string fullTitle() const override { return m_type + m_name; }

  /// Called after each step with the share of the work that is done, 0..1.
  void onProgress(std::function<void(double)> listener) { m_listener = std::move(listener); }

 private:
  void hearBlocks();
  void hearPrecisely();
  bool atEnd() const;
  bool takeNextChord();

  std::string m_file;
  platform::Ref<QBSong> m_newSong;
  ImportDetection m_detection = ImportDetection::classic;
  precise::Settings m_settings{};
  std::shared_ptr<QBChordAnalyser> m_analyser;
  std::unique_ptr<QBRecorder> m_recorder;
  std::function<void(double)> m_listener;
};

}  // namespace korvel
