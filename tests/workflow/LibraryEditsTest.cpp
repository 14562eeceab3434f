// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/LibraryEdits.h"

#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "model/store/QBSettings.h"
#include "platform/persistence/UndoManager.h"
#include "support/RecordingViews.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"
#include "tab/text/SongDrawing.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/InstrumentNode.h"
#include "workflow/library/LibraryTree.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/library/TuningEdits.h"
#include "workflow/library/TuningNode.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/SongInWork.h"
#include "workflow/session/StoreSeeding.h"

namespace korvel {
namespace {

struct LibraryEditsTest : testing::Test {
  QBSong* song(QBAlbum* album, const std::string& title) {
    QBSong* made = album->createSong(title);
    made->setTuning(m_store.standard());
    test::addChord(made, "x02210");
    buildTab(*made);
    return made;
  }
  /// "Album: Song Song; " for each album.
  static std::string texts(LibraryTree& tree) {
    std::string text;
    tree.refresh();
    for (const auto& album : tree.albums()) {
      text += album->title() + ':';
      for (const auto& each : album->children()) text += ' ' + each->title();
      text += "; ";
    }
    return text;
  }

  test::StandardStore m_store;
  test::RecordingViews m_views;
};

TEST_F(LibraryEditsTest, namesStayFreeWhateverIsRenamedMovedOrCloned) {
  QBAlbum* first = newAlbum("A");
  QBAlbum* second = newAlbum("A");
  QBSong* a = song(first, "S");
  song(second, "S");
  LibraryTree tree(QBTabMgr::db(), QBSession::session());
  moveSong(*a, *second);
  EXPECT_EQ(texts(tree), "A:; A_2: S_2 S; ");
  EXPECT_NE(a->tabulature().find("S_2"), std::string::npos) << "the heading has the new title";
  EXPECT_THROW(renameSong(*a, "S"), EditRefused);
  EXPECT_THROW(renameSong(*a, " "), EditRefused);
  EXPECT_THROW(renameAlbum(*second, "A"), EditRefused);
  cloneAlbum(*second);
  EXPECT_EQ(texts(tree), "A:; A_2: S_2 S; A_2_2: S_2 S; ");
  renameAlbum(*second, "Übung");
  EXPECT_EQ(texts(tree), "A:; Übung: S_2 S; A_2_2: S_2 S; ");
  EXPECT_TRUE(QBSession::session().undo());
  EXPECT_EQ(texts(tree), "A:; A_2: S_2 S; A_2_2: S_2 S; ");
}

TEST_F(LibraryEditsTest, workDirectoryIsMadeAndChosenOrStaysAsItWas) {
  const auto chosen = [] { return QBTabMgr::db().selectedSettings()->workDir(); };
  newAlbum("A");
  const std::string folder = m_store.folder().file("work/of mine");
  setWorkDirectory(folder);
  EXPECT_TRUE(std::filesystem::is_directory(folder));
  EXPECT_EQ(chosen(), folder + '/');
  setWorkDirectory(folder + '/');
  EXPECT_EQ(chosen(), folder + '/');
  auto& context = QBTabMgr::db().context();
  context.store().execute("PRAGMA query_only = 1");
  EXPECT_ANY_THROW(setWorkDirectory(m_store.folder().file("other")));
  context.store().execute("PRAGMA query_only = 0");
  EXPECT_EQ(chosen(), folder + '/');
  EXPECT_ANY_THROW(setWorkDirectory(m_store.folder().file("Korvel.sqlite/within")));
  context.save();
  EXPECT_TRUE(QBSession::session().undo()) << "of the album, as settings are none";
  EXPECT_TRUE(QBTabMgr::db().albums().empty());
  EXPECT_EQ(chosen(), folder + '/');
}

TEST_F(LibraryEditsTest, deletedSongIsSavedAndComesBackAndARecordedOneStays) {
  QBSong* deleted = song(newAlbum("A"), "S");
  QBTabMgr::db().save();
  QBSession& session = QBSession::session();
  LibraryTree tree(QBTabMgr::db(), session);
  session.setActiveSong(deleted);
  {
    const SongInWork recording(deleted, SongInWork::Filler::recording);
    EXPECT_THROW(deleteSong(*deleted), EditRefused);
    EXPECT_EQ(texts(tree), "A: S; ");
  }
  deleteSong(*deleted);
  EXPECT_EQ(texts(tree), "A:; ");
  EXPECT_EQ(session.activeSong(), nullptr);
  EXPECT_EQ(m_views.log.back(), "Song was successfully deleted.");
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges());
  EXPECT_TRUE(session.undo());
  EXPECT_EQ(texts(tree), "A: S; ");
}

TEST_F(LibraryEditsTest, seedingFillsWhatIsMissingOnly) {
  QBTabMgr& db = QBTabMgr::db();
  initializeData(db);
  const auto rows = [] {
    platform::SqliteDatabase& store = QBTabMgr::db().context().store();
    std::string text;
    for (const char* table : {"QBTuning", "QBString", "QBInstrument", "QBHarmony", "QBSettings",
                              "QBLeftHandPattern", "QBRightHandPattern"})
      text += store.text("SELECT count(*) FROM " + std::string(table)) + ' ';
    return text;
  };
  const std::string before = rows();
  EXPECT_EQ(before.find(" 0 "), std::string::npos) << before;
  db.selectTuning(m_store.dropD());
  m_store.standard()->setDescr("Renamed");
  db.deleteInstance(db.selectedSettings());
  db.save();
  QBTabMgr::clearDb();
  prepareStore();
  EXPECT_EQ(rows(), before) << "no second tunings";
  EXPECT_EQ(QBTabMgr::db().selectedTuning(), m_store.dropD());
  EXPECT_EQ(m_store.standard()->descr(), "Renamed");
}

TEST_F(LibraryEditsTest, knownTuningsAreThoseOfGuitarists) {
  std::string notes;
  for (const KnownTuning each : knownTunings())
    notes += notesOf(*newTuning(each, std::string("A ") + nameOf(each))) + '\n';
  EXPECT_EQ(notes,
            "E2 A2 D3 G3 B3 E4\nD2 A2 D3 G3 B3 E4\nD2 G2 D3 G3 B3 D4\nD2 A2 D3 F#3 A3 D4\n"
            "D2 A2 D3 G3 A3 D4\nEb2 Ab2 C#3 F#3 Bb3 Eb4\nD2 G2 C3 F3 A3 D4\nE2 B2 E3 Ab3 B3 E4\n"
            "C2 G2 C3 F3 A3 D4\n");
}

TEST_F(LibraryEditsTest, editedTuningSoundsAsItSaysAndKeepsItsPlace) {
  QBTuning* open = newTuning(KnownTuning::dropD);
  EXPECT_EQ(open->descr(), "Drop D_2");
  selectTuning(*open);
  OpenPitches dadgad = open->openStrings().pitches();
  EXPECT_EQ(dadgad, (OpenPitches{38, 45, 50, 55, 59, 64}));
  dadgad[4] = 57;
  dadgad[5] = 62;
  open = editTuning(*open, dadgad);
  EXPECT_EQ(open->toString(), "DAGDAD");
  EXPECT_EQ(QBTabMgr::db().selectedTuning(), open);
  EXPECT_FLOAT_EQ(open->computeFrequency(5, 0), 293.66F);
  EXPECT_FLOAT_EQ(open->computeFrequency(0, 0), 73.41F) << "was not touched";
  QBTabMgr::db().reloadData();
  ASSERT_EQ(QBTabMgr::db().tunings().size(), 3U);
  EXPECT_EQ(QBTabMgr::db().findTuningByOrder(3)->openStrings().pitches(), dadgad);
}

TEST_F(LibraryEditsTest, tuningThatCannotBeIsRefusedAndStaysAsItWas) {
  QBTuning* dropD = m_store.dropD();
  EXPECT_THROW(editTuning(*dropD, {38, 45, 44, 55, 59, 64}), EditRefused) << "strings cross";
  EXPECT_THROW(editTuning(*dropD, {30, 45, 50, 55, 59, 64}), EditRefused) << "too low";
  song(newAlbum("A"), "S");
  EXPECT_THROW(editTuning(*m_store.standard(), {38, 45, 50, 55, 59, 64}), EditRefused) << "in use";
  EXPECT_EQ(dropD->openStrings().pitches(), kDropDPitches);
}

TEST_F(LibraryEditsTest, onlyAnUnusedTuningIsDeleted) {
  QBTuning* mine = newTuning("Mine", {38, 45, 50, 55, 57, 62});
  selectTuning(*mine);
  QBSong* written = song(newAlbum("A"), "S");
  written->setTuning(mine);
  EXPECT_THROW(deleteTuning(*mine), EditRefused) << "a song is written in it";
  written->setTuning(m_store.standard());
  deleteTuning(*mine);
  EXPECT_EQ(QBTabMgr::db().selectedTuning(), m_store.standard());
  deleteTuning(*m_store.dropD());
  written->setTuning(nullptr);
  EXPECT_THROW(deleteTuning(*m_store.standard()), EditRefused) << "the only one";
}

TEST_F(LibraryEditsTest, instrumentFilesAreReadWholeOrNotAtAll) {
  const std::string file = m_store.folder().file("guitar.xml");
  const auto overtone = [](const std::string& amp) {
    return "<Overtone>\n<OverString>2</OverString><OverFret>2</OverFret>\n<OverNote>4</OverNote>"
           "<OverNmbOfHits>9</OverNmbOfHits>\n" +
           amp + "<Offset>13</Offset></Overtone>\n";
  };
  const auto spectrum = [](const std::string& order, const std::string& overtones) {
    return "<Spectrum><String><Order>" + order + "</Order></String>\n" + overtones + "</Spectrum>";
  };
  const std::string head = "<Instrument><Name>Mine</Name>\n<DetailLevel>0.5</DetailLevel>\n";
  const std::string good = overtone("<Amp>1.5</Amp>");
  const std::string whole = head + spectrum("1", good + good) + "</Instrument>\n";
  const std::pair<std::string, std::string> broken[] = {
      {"<Song/>", "is no instrument definition file"},
      {whole.substr(0, whole.size() - 20), "breaks off in line 12, before </Spectrum>"},
      {whole.substr(0, whole.find("/OverNote")), "breaks off in line 6, before </OverNote>"},
      {head + spectrum("1", overtone("")), "line 7 has <Offset> where <Amp> belongs"},
      {head + spectrum("1", overtone("<Amp>loud</Amp>")),
       "line 7 has \"loud\" where a number belongs"},
      {head + spectrum("6", good), "line 3 has \"6\" where a string, 0 to 5, belongs"},
      {head + "<Spektrum>", "line 3 has <Spektrum> where </Instrument> belongs"}};
  for (const auto& [text, problem] : broken) {
    test::writeFile(file, text);
    try {
      importInstrument(file);
      ADD_FAILURE() << text;
    } catch (const EditRefused& refused) {
      EXPECT_EQ(refused.what(), file + ": " + problem + "; nothing was imported");
    }
  }
  EXPECT_TRUE(QBTabMgr::db().instruments().empty());
  test::writeFile(file, whole);
  selectTuning(*m_store.dropD());
  QBInstrument* read = importInstrument(file);
  EXPECT_EQ(read->findSpectrumByString(1)->overtones().at(0)->offset(), 13) << "as it stands";
  EXPECT_EQ(m_views.log.back(),
            "The file has no overtones of string 1, 2, 3, 4, 6; tones there count unconfirmed.");
}

TEST_F(LibraryEditsTest, oneInstrumentIsAlwaysSelected) {
  const std::string file = m_store.folder().file("guitar.xml");
  test::writeFile(file, "<Instrument><Name>One</Name><DetailLevel>0.5</DetailLevel></Instrument>");
  QBInstrument* one = importInstrument(file);
  ASSERT_NE(one, nullptr);
  EXPECT_THROW(deleteInstrument(*one), EditRefused);
  test::writeFile(file, definitionOf(*one));
  QBInstrument* two = importInstrument(file);
  EXPECT_EQ(QBTabMgr::db().selectedInstrument(), two);
  EXPECT_FALSE(one->active());
  EXPECT_THROW(renameInstrument(*two, " "), EditRefused);
  renameInstrument(*two, "Two");
  EXPECT_THROW(renameInstrument(*two, "One"), EditRefused) << "a name that is taken";
  QBSession::session().undo();
  const platform::UndoManager& undo = QBTabMgr::db().context().undoManager();
  EXPECT_EQ(undo.undoActionName().english(), "Import Instrument");
  test::writeFile(file, "<Song/>");
  EXPECT_THROW(importInstrument(file), EditRefused);
  EXPECT_ANY_THROW(importInstrument(m_store.folder().file("none.xml")));
  EXPECT_EQ(undo.redoActionName().english(), "Rename Instrument")
      << "refused, so nothing has changed";
  EXPECT_TRUE(QBSession::session().redo());
  EXPECT_EQ(undo.undoActionName().english(), "Rename Instrument");
  EXPECT_EQ(QBTabMgr::db().selectedInstrument(), two);
  deleteInstrument(*two);
  EXPECT_EQ(QBTabMgr::db().selectedInstrument(), one);
}

}  // namespace
}  // namespace korvel
