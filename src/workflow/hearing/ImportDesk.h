// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "precise/Settings.h"
#include "workflow/hearing/ImportDetection.h"

namespace korvel {

class LibraryTree;
class QBAlbum;
class QBCmdImportSong;
class QBSong;

/// An import that runs, or ran when the program ended.
struct ImportUnderWay {
  std::string file;
  std::int64_t song = 0;  ///< Its object id.
  std::string title{};
};

/// Starts imports as jobs of the session, stepped beside the user's work.
class ImportDesk {
 public:
  explicit ImportDesk(LibraryTree& tree) : m_tree(tree) {}

  /// How recordings are heard from now on.
  void setDetection(ImportDetection detection, const precise::Settings& settings);
  /// Into a new song of an album, a new one when none is named. What is wrong with a file is
  /// reported through the session, and nothing was made then; none is answered.
  std::shared_ptr<QBCmdImportSong> importFile(const std::string& file, QBAlbum* into = nullptr);
  /// Ends all jobs that still run, for a program that is to end. Imports keep what they have heard;
  /// answers those that were cut short, and those whose last steps failed.
  static std::vector<ImportUnderWay> endAll();
  static std::vector<ImportUnderWay> running();
  /// Mends what the end of an earlier program has left of an import: a song with chords gets its
  /// tablature and is answered, and one without chords goes.
  static QBSong* mend(const ImportUnderWay& interrupted);

 private:
  std::shared_ptr<QBCmdImportSong> start(const std::string& file, QBAlbum* into);

  LibraryTree& m_tree;
  ImportDetection m_detection = ImportDetection::precise;
  precise::Settings m_settings{};
};

}  // namespace korvel
