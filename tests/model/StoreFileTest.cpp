// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sqlite/StoreFile.h"

#include <gtest/gtest.h>

#include "model/store/KorvelModel.h"
#include "platform/persistence/ManagedContext.h"
#include "platform/sqlite/StoreError.h"
#include "support/Process.h"
#include "support/ScratchFolder.h"

namespace korvel {
namespace {

using platform::SqliteDatabase;
using platform::StoreError;
using platform::StoreFile;
using Reason = StoreError::Reason;

class StoreFileTest : public testing::Test {
 protected:
  std::string make() {
    storeFile(m_path).create();
    return m_path;
  }
  /// What opening says, with the proof that it left the file as it was.
  Reason refusal() {
    const std::string before = test::readFile(m_path);
    try {
      storeFile(m_path).open();
    } catch (const StoreError& error) {
      EXPECT_EQ(test::readFile(m_path), before);
      EXPECT_NE(std::string(error.what()).find(m_path), std::string::npos);
      return error.reason();
    }
    ADD_FAILURE() << "the store was opened";
    return Reason::failed;
  }
  void alter(const std::string& sql) {
    SqliteDatabase database(m_path, SqliteDatabase::Mode::readWrite);
    database.execute(sql);
  }

  test::ScratchFolder m_folder;
  std::string m_path = m_folder.file("Korvel.sqlite");
};

TEST_F(StoreFileTest, refusesWhatIsNotAStore) {
  test::writeFile(m_path,
                  "a letter to a friend, of more than a hundred bytes, so that there is "
                  "something to look at where a header would be");
  EXPECT_EQ(refusal(), Reason::notAStore);
  test::writeFile(m_path, "");
  EXPECT_EQ(refusal(), Reason::notAStore);
  std::filesystem::remove(m_path);
  SqliteDatabase(m_path, SqliteDatabase::Mode::create).execute("CREATE TABLE somebody_elses(x)");
  EXPECT_EQ(refusal(), Reason::notAStore);
}

TEST_F(StoreFileTest, refusesNewerStore) {
  make();
  alter("PRAGMA user_version = 1000");
  EXPECT_EQ(refusal(), Reason::newer);
}

TEST_F(StoreFileTest, refusesDamagedStore) {
  make();
  const std::string whole = test::readFile(m_path);
  test::writeFile(m_path, whole.substr(0, whole.size() / 2));
  EXPECT_EQ(refusal(), Reason::damaged);
  std::string torn = whole;
  torn.replace(4096, 4096, std::string(4096, 'x'));
  test::writeFile(m_path, torn);
  EXPECT_EQ(refusal(), Reason::damaged);
}

/// Too large to be checked at opening, which only reads: the first change looks at it.
class LargeStoreTest : public StoreFileTest {
 protected:
  LargeStoreTest() {
    make();
    alter(
        "INSERT INTO QBAlbum(id) VALUES(1); INSERT INTO QBSong(id, album) VALUES(1, 1);"
        "INSERT INTO QBChord(id, song) VALUES(1, 1); INSERT INTO QBHold(id, chord) VALUES(1, 1);"
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 300000)"
        "INSERT INTO QBTone(hold, string) SELECT 1, i FROM n");
    EXPECT_GT(std::filesystem::file_size(m_path), 8U << 20);
  }
};

TEST_F(LargeStoreTest, isNotWrittenIntoWhenDamaged) {
  std::string bytes = test::readFile(m_path);
  bytes.replace(bytes.size() / 2, 100000, std::string(100000, 'x'));
  test::writeFile(m_path, bytes);
  for (const bool ahead : {false, true}) {
    platform::ManagedContext context(storeFile(m_path).open(), korvelModel());
    context.insert("QBAlbum");
    if (ahead) context.checkAhead();
    for (int tries = 0; tries < 2; ++tries) EXPECT_THROW(context.save(), StoreError) << ahead;
    EXPECT_EQ(test::readFile(m_path), bytes);
  }
}

TEST_F(LargeStoreTest, staysLockedBesideItsCheck) {
  const auto otherProcess = [&] {
    return test::runProgram({KORVEL_CLI, "--store", m_path, "tunings"}).err;
  };
  std::filesystem::rename(m_path, m_folder.file("50 %?#.sqlite"));
  m_path = m_folder.file("50 %?#.sqlite");
  { platform::ManagedContext(storeFile(m_path).open(), korvelModel()).checkAhead(); }
  platform::ManagedContext context(storeFile(m_path).open(), korvelModel());
  context.checkAhead();
  context.insert("QBAlbum");
  EXPECT_NE(otherProcess().find("in use"), std::string::npos);
  context.save();
  EXPECT_FALSE(context.isBeingChecked());
  EXPECT_NE(otherProcess().find("in use"), std::string::npos) << "the check has unlocked it";
  EXPECT_EQ(context.fetch("QBAlbum").size(), 2U);
}

TEST_F(StoreFileTest, leavesWriteAheadMode) {
  make();
  alter("PRAGMA journal_mode = WAL");
  ASSERT_EQ(test::readFile(m_path).at(18), 2);
  storeFile(m_path).open();
  EXPECT_EQ(test::readFile(m_path).at(18), 1);
}

TEST_F(StoreFileTest, refusesStoreInUse) {
  make();
  const auto open = storeFile(m_path).open();
  EXPECT_EQ(refusal(), Reason::inUse);
}

TEST_F(StoreFileTest, addsWhatAnOlderStoreLacksAfterBackingItUp) {
  make();
  alter(
      "DROP INDEX QBTone_hold; ALTER TABLE QBTone DROP COLUMN \"group\"; DROP TABLE QBSample;"
      "INSERT INTO QBAlbum(id, name) VALUES(5, 'kept'); PRAGMA user_version = 0");
  const auto store = storeFile(m_path).open();
  EXPECT_EQ(store->text("SELECT name FROM QBAlbum WHERE id = 5"), "kept");
  EXPECT_EQ(store->integer("SELECT count(\"group\") FROM QBTone"), 0);
  EXPECT_EQ(store->integer("SELECT count(*) FROM QBSample"), 0);
  EXPECT_EQ(store->integer("PRAGMA user_version"), 1);
  SqliteDatabase backup(m_path + ".backup-of-version-0", SqliteDatabase::Mode::readOnly);
  EXPECT_EQ(backup.text("SELECT name FROM QBAlbum"), "kept");
  EXPECT_EQ(backup.integer("PRAGMA user_version"), 0);
}

TEST_F(StoreFileTest, backupIsCompleteAndProblemsAreFound) {
  make();
  const auto store = storeFile(m_path).open();
  const std::string copy = m_folder.file("copy.sqlite");
  StoreFile::backup(*store, copy);
  const auto opened = storeFile(copy).open();
  EXPECT_TRUE(StoreFile::problems(*opened).empty());
  opened->execute("PRAGMA foreign_keys = OFF; INSERT INTO QBTone(hold) VALUES(99)");
  EXPECT_EQ(StoreFile::problems(*opened).size(), 1U);
}

}  // namespace
}  // namespace korvel
