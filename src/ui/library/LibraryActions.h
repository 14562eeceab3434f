// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/persistence/Ref.h"
#include "workflow/exporting/RenderSongCommand.h"
#include "workflow/exporting/SongFiles.h"
#include "workflow/hearing/ImportDesk.h"
#include "workflow/library/TuningEdits.h"

class QMenu;

namespace korvel {
class QBCmdImportSong;
class QBCommand;
class QBInstrument;
class QBSongNode;
class TreeNode;
}  // namespace korvel

namespace korvel::ui {

class PieceImports;
class SongGuides;

/// What the menus offer for the nodes of the tree: asks what has to be asked, has the workflow do
/// it, and says what cannot be.
class LibraryActions final : public QObject {
  Q_OBJECT

 public:
  using Songs = std::vector<platform::Ref<QBSong>>;

  /// Dialogs stand over the window; desk and guides outlive this.
  LibraryActions(ImportDesk& desk, SongGuides& guides, QWidget* window);

  // Menus of the tree, by what was clicked.
  void fillRootMenu(QMenu& menu);
  void fillTuningsMenu(QMenu& menu);
  void fillInstrumentsMenu(QMenu& menu);
  /// A menu for a node of any kind.
  void fillMenu(QMenu& menu, TreeNode& node);
  /// For several songs that are selected.
  void fillSongsMenu(QMenu& menu, const Songs& songs);
  /// As the menu of the menu bar has it: what is asked for acts on the album that is selected.
  void fillAlbumMenu(QMenu& menu, const std::function<QBAlbum*()>& album);

  /// Asks for files; into a new album each unless one is named.
  void chooseAndImport(QBAlbum* into = nullptr);
  /// Imports the files, and of folders the sound files, tabs and scores in them.
  void importFiles(const QStringList& files, QBAlbum* into = nullptr);
  /// Hears a song again that was left to this start.
  void goOn(const ImportUnderWay& left);
  void createAlbum();
  /// At once, without a question.
  void remove(TreeNode& node);
  /// In a format that the user chooses with the name of the file.
  void exportSongFile(QBSong* song);
  /// Asks when a file of that name is there.
  bool mayReplace(const QString& file);

 signals:
  /// What the user wanted cannot be; text: why, in one line.
  void refused(const QString& text);
  /// A recording that is being imported is there already; drop: cancels that import, if it still
  /// runs, and tells the song where its recording is, if that was lost.
  void alreadyThere(QBSong* known, const std::function<void()>& drop);
  /// A recording that was heard is clearly played in another tuning than its song has; hear: hears
  /// it again in that one.
  void tuningFound(QBSong* song, const QString& tuning, const std::function<void()>& hear);
  /// A file was not imported, and a text in the song's place says why; advice: what to try.
  void importRefused(const QString& advice);
  void importStarted(const QString& file);
  /// The same of a file that is no recording.
  void pieceStarted(const QString& file);
  void imported(const QString& file, QBSong* song);
  /// The title of that node is to be edited in place.
  void renameWanted(const TreeNode* node);
  /// The tablature of the song is to be drawn into that file, as its ending says (`savePaper`).
  void paperWanted(QBSong* song, const QString& file);
  /// The song's page of chords is to be written there, by its ending (`writePage`).
  void pageWanted(QBSong* song, const QString& file);
  /// The user made an album, and has yet to name it.
  void albumCreated(const QBAlbum* album);

 private:
  class MenuOfNode;
  /// Makes the job that writes into a folder.
  using Exporter = std::function<std::shared_ptr<QBCommand>(const std::string& folder)>;

  /// Runs an edit and tells why it was refused.
  void attempt(const std::function<void()>& edit);
  void importFolder(const QString& folder, QBAlbum* into);
  void importFile(const QString& file, QBAlbum* into);
  void importChords(const QString& file, QBAlbum* into);
  void lookForKnown(const std::shared_ptr<QBCmdImportSong>& job, const QString& file);
  void giveRecording(QBSong& song, const QString& file);
  void follow(const std::shared_ptr<QBCmdImportSong>& job, const QString& file);
  void tellTuning(QBSong& song, const FoundTuning& found, const QString& file);
  void fillUnheardMenu(QMenu& menu, QBSong& song);
  void addHearAgain(QMenu& menu, QBSong& song);
  void hearAgain(QBSong& song, std::optional<Players> players, const chords::Voices& voices);
  void fillSongMenu(QMenu& menu, const std::shared_ptr<QBSongNode>& node);
  void fillTuningMenu(QMenu& menu, QBTuning& tuning);
  void fillInstrumentMenu(QMenu& menu, QBInstrument& instrument);
  void addRename(QMenu& menu, const TreeNode& node);
  void exportAs(QBSong& song, const QString& file, std::size_t format);
  void exportPaper(QBSong& song, const QString& file, const QString& ending);
  void exportPage(QBSong& song, const QString& file, const QString& ending);
  static void renderSong(QBSong& song, RenderedPart part, const QString& file);
  /// Runs it as a job of the session; one that cannot begin does not become one.
  static void run(const std::shared_ptr<QBCommand>& job);
  void exportAll(QBAlbum& album, SongFormat format);
  /// Asks for the folder.
  void exportInto(const Exporter& exporter);
  void editStrings(QBTuning& tuning);
  void chooseInstrument();
  void calibrateInstrument();
  void exportInstrument(QBInstrument& instrument);

  ImportDesk& m_desk;
  SongGuides& m_guides;
  QWidget* m_window;
  PieceImports* m_pieces;
};

}  // namespace korvel::ui
