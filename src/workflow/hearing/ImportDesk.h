// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/HearingSettings.h"
#include "workflow/hearing/Detection.h"

namespace korvel {

class LibraryTree;
class QBAlbum;
class QBCmdImportSong;
class QBSong;
class QBTuning;

/// An import that runs, or ran when the program ended.
struct ImportUnderWay {
  std::string file;
  std::int64_t song = 0;  ///< Its object id.
  std::string title{};
  bool goesOn = false;  ///< The next start is to hear it again, as the user wishes.
};

/// What is otherwise when a recording is heard again.
struct Otherwise {
  std::optional<Players> players{};  ///< None for those that it was heard as.
  chords::Voices voices{};           ///< Of a band; each becomes a further song.
  QBTuning* tuning = nullptr;        ///< None for the song's.
  std::optional<double> farA{};      ///< How far above 440 Hz, in cents; none for the recording's.
};

/// Starts imports as jobs of the session, stepped beside the user's work.
class ImportDesk {
 public:
  explicit ImportDesk(LibraryTree& tree) : m_tree(tree) {}

  /// How recordings are heard from now on.
  void setDetection(const Detection& detection, const HearingSettings& settings);
  /// Whether copies of the recordings are kept beside the store from now on, of imports that run
  /// too.
  void setKeepsSounds(bool keeps);
  /// Into a new song of an album, a new one when none is named; it tells of the tuning that it
  /// finds (`QBCmdImportSong::otherTuning`). What is wrong with a file is reported through the
  /// session, and nothing was made then; none is answered.
  std::shared_ptr<QBCmdImportSong> importFile(const std::string& file, QBAlbum* into = nullptr);
  /// Hears the recording of a song again, from its beginning; in the end what was heard takes the
  /// song's place. What its user said of its rhythm holds, so does its capo, and what plays in it
  /// is what it was heard as. Problems as above.
  std::shared_ptr<QBCmdImportSong> hearAgain(QBSong& song, const Otherwise& otherwise);
  std::shared_ptr<QBCmdImportSong> hearAgain(QBSong& song) { return hearAgain(song, {}); }
  /// The same for a song that was left to this start; none when it is not there any more.
  std::shared_ptr<QBCmdImportSong> goOn(const ImportUnderWay& left);
  /// Has all imports that run end some steps later, with what they have heard.
  static void stopAll();
  /// Ends all imports that run at once, and answers them for the next start to go on with.
  static std::vector<ImportUnderWay> leaveAll();
  /// Ends all jobs that still run, for a program that is to end. Imports keep what they have heard;
  /// answers those that were cut short, and those whose last steps failed.
  static std::vector<ImportUnderWay> endAll();
  static std::vector<ImportUnderWay> running();
  /// Mends what the end of an earlier program has left of an import: a song with chords gets its
  /// tablature and is answered, and one without chords goes.
  static QBSong* mend(const ImportUnderWay& interrupted);

 private:
  std::shared_ptr<QBCmdImportSong> start(const std::string& file, QBAlbum* into);
  std::shared_ptr<QBCmdImportSong> startAgain(QBSong& song, const Otherwise& otherwise);
  HearingSettings settingsFor(const QBSong& song, const Otherwise& otherwise) const;
  std::shared_ptr<QBCmdImportSong> command(const std::string& file, QBSong* song, QBAlbum* album);
  void run(const std::shared_ptr<QBCmdImportSong>& command);

  LibraryTree& m_tree;
  const Detection* m_detection = &preciseDetection();
  HearingSettings m_settings{};
  bool m_keepsSounds = false;
};

}  // namespace korvel
