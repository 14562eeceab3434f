// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sqlite/Sqlite.h"

#include "platform/sqlite/StoreError.h"
#include "support/SaidBy.h"
#include "support/Testing.h"
#include "support/store/ScratchFolder.h"

namespace korvel::platform {
namespace {

TEST(SqliteStatement, keepsTextsAndBytesWithZeros) {
  test::ScratchFolder folder;
  SqliteDatabase database(folder.file("a.sqlite"), SqliteDatabase::Mode::create);
  database.execute("CREATE TABLE t(a, b)");
  const std::string text("x\0y", 3);
  const std::byte bytes[] = {std::byte{0}, std::byte{255}};
  auto insert = database.prepare("INSERT INTO t VALUES(?, ?)");
  insert.bind(0, text);
  insert.bind(1, std::span<const std::byte>(bytes));
  insert.run();
  auto select = database.prepare("SELECT a, b FROM t");
  ASSERT_TRUE(select.step());
  EXPECT_EQ(select.text(0), text);
  ASSERT_EQ(select.blob(1).size(), 2U);
  EXPECT_EQ(select.blob(1)[1], std::byte{255});
}

TEST(SqliteStatement, namesItsFileWhenItsDatabaseHasMoved) {
  test::ScratchFolder folder;
  SqliteDatabase opened(folder.file("a.sqlite"), SqliteDatabase::Mode::create);
  opened.execute("CREATE TABLE t(a NOT NULL)");
  auto insert = opened.prepare("INSERT INTO t VALUES(?)");
  const SqliteDatabase kept = std::move(opened);
  EXPECT_TRUE(test::saidBy<StoreError>([&] { insert.run(); }).starts_with(kept.file() + ": "));
}

}  // namespace
}  // namespace korvel::platform
