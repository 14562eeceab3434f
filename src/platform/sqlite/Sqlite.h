// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/SummedFiles.h"

struct sqlite3_stmt;

namespace korvel::platform {

class SqliteStatement;

/// One connection to a SQLite file. Thin on purpose: the C API with lifetimes and exceptions added,
/// which leaves the backup, locking and file-format calls within reach that wrappers hide. What it
/// makes keeps sums of its pages (`SummedFiles`), and what it reads is compared with them.
/// For one thread at a time. Every failure throws StoreError with the file's name.
class SqliteDatabase {
 public:
  enum class Mode {
    readOnly,
    readWrite,
    create,
    lockedByUs,  ///< As readOnly, beside a connection of this process that has the file locked.
  };

  SqliteDatabase(std::string file, Mode mode);
  /// The connection passes to the new object, and the statements stay with it.
  SqliteDatabase(SqliteDatabase&&) noexcept = default;
  SqliteDatabase& operator=(SqliteDatabase&&) noexcept = default;
  /// Closes the file once the last statement is gone too.
  ~SqliteDatabase();

  /// Runs statements that answer no rows.
  void execute(const std::string& sql);
  SqliteStatement prepare(const std::string& sql);
  /// First column of the first row; 0 or "" when there is no row.
  std::int64_t integer(const std::string& sql);
  std::string text(const std::string& sql);
  /// First column of every row.
  std::vector<std::string> column(const std::string& sql);

  /// Has a statement that runs fail. From any thread.
  void interrupt();
  /// Copies the whole content into another database, which is empty. Its sums are outdated then.
  void copyTo(SqliteDatabase& target);

  /// How it stands with the sums that tell whether pages are as they were written.
  SummedFiles::State sums() const;
  /// Takes what is stored for right and gives every page its sum, for which there must be room. For
  /// a connection that has the file locked and no change begun. Does nothing while a statement has
  /// rows to read.
  void renewSums();

  const std::string& file() const;
  /// Whether nothing can be written: the file is only open for reading, or its folder takes no
  /// journal, without which no change begins.
  bool isReadOnly() const;

 private:
  friend class SqliteStatement;
  class Connection;
  std::shared_ptr<const Connection> m_connection;
};

/// A prepared statement. Parameters and columns count from 0.
class SqliteStatement {
 public:
  SqliteStatement(const SqliteDatabase& database, const std::string& sql);

  void bindNull(int index);
  void bind(int index, std::int64_t value);
  void bind(int index, double value);
  void bind(int index, std::string_view value);
  void bind(int index, std::span<const std::byte> value);

  /// True while there is a row to read.
  bool step();
  /// Steps a statement that answers no rows, and makes it ready for the next use.
  void run();
  void reset();

  bool isNull(int column) const;
  std::int64_t integer(int column) const;
  double real(int column) const;
  /// Valid until the next step.
  std::string_view text(int column) const;
  std::span<const std::byte> blob(int column) const;

 private:
  void check(int result) const;
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };
  std::shared_ptr<const SqliteDatabase::Connection> m_connection;
  std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

/// All or nothing: rolls back unless committed.
class SqliteTransaction {
 public:
  explicit SqliteTransaction(SqliteDatabase& database);
  SqliteTransaction(const SqliteTransaction&) = delete;
  SqliteTransaction& operator=(const SqliteTransaction&) = delete;
  ~SqliteTransaction();
  void commit();

 private:
  SqliteDatabase& m_database;
  bool m_open = true;
};

/// A name in double quotes, for names that are words of the query language.
std::string sqlName(std::string_view name);

}  // namespace korvel::platform
