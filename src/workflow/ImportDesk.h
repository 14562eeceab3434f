// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "analysis/precise/Settings.h"
#include "workflow/ImportDetection.h"

namespace korvel {

class LibraryTree;
class QBAlbum;
class QBCmdImportSong;

/// Starts imports as jobs of the session, stepped beside the user's work.
class ImportDesk {
 public:
  explicit ImportDesk(LibraryTree& tree) : m_tree(tree) {}

  /// How recordings are heard from now on.
  void setDetection(ImportDetection detection, const precise::Settings& settings);
  /// Into a new song of an album, a new one when none is named. What is wrong with a file is
  /// reported through the session, and nothing was made then; none is answered.
  std::shared_ptr<QBCmdImportSong> importFile(const std::string& file, QBAlbum* into = nullptr);
  /// Ends all jobs that still run, without a trace.
  static void dropAll();
  /// Files whose import runs.
  static std::vector<std::string> running();

 private:
  std::shared_ptr<QBCmdImportSong> start(const std::string& file, QBAlbum* into);

  LibraryTree& m_tree;
  ImportDetection m_detection = ImportDetection::precise;
  precise::Settings m_settings{};
};

}  // namespace korvel
