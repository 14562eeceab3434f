// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sqlite/StoreFile.h"

#include "model/store/KorvelModel.h"
#include "platform/persistence/ManagedContext.h"
#include "platform/sqlite/StoreError.h"
#include "support/Process.h"
#include "support/Testing.h"
#include "support/store/ScratchFolder.h"

namespace korvel {
namespace {

using platform::SqliteDatabase;
using platform::StoreError;

/// Too large to be checked at opening, which only reads: the first change looks at it.
struct LargeStoreTest : testing::Test {
  LargeStoreTest() {
    storeFile(m_path).create();
    SqliteDatabase(m_path, SqliteDatabase::Mode::readWrite)
        .execute(
            "INSERT INTO QBAlbum(id) VALUES(1); INSERT INTO QBSong(id, album) VALUES(1, 1);"
            "INSERT INTO QBChord(id, song) VALUES(1, 1); INSERT INTO QBHold(id, chord) VALUES(1, "
            "1);"
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 300000)"
            "INSERT INTO QBTone(hold, string) SELECT 1, i FROM n");
    EXPECT_GT(std::filesystem::file_size(m_path), 8U << 20);
  }

  test::ScratchFolder m_folder;
  std::string m_path = m_folder.file("Korvel.sqlite");
};

TEST_F(LargeStoreTest, isNotWrittenIntoWhenDamaged) {
  const std::string sound = test::readFile(m_path);
  for (const bool ahead : {false, true}) {
    std::string bytes = sound;
    if (ahead)
      bytes[bytes.size() / 2] ^= 1;
    else
      bytes.replace(bytes.size() / 2, 100000, std::string(100000, 'x'));
    test::writeFile(m_path, bytes);
    platform::ManagedContext context(storeFile(m_path).open(), korvelModel());
    context.insert("QBAlbum");
    if (ahead) context.checkAhead();
    for (int tries = 0; tries < 2; ++tries) EXPECT_THROW(context.save(), StoreError) << ahead;
    EXPECT_EQ(test::readFile(m_path), bytes);
  }
}

TEST_F(LargeStoreTest, getsItsSumsAgainWhenAnotherProgramHasWritten) {
  using State = platform::SummedFiles::State;
  const std::string sql = KORVEL_TEST_DATA "/shell/sql.py";
  ASSERT_EQ(test::runProgram({"python3", sql, m_path, "UPDATE QBTone SET fret = 1"}).status, 0);
  platform::ManagedContext context(storeFile(m_path).open(), korvelModel());
  EXPECT_EQ(context.store().sums(), State::outdated);
  context.insert("QBAlbum");
  context.save();
  EXPECT_EQ(context.store().sums(), State::kept);
  EXPECT_EQ(context.store().text("PRAGMA quick_check"), "ok");
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

}  // namespace
}  // namespace korvel
