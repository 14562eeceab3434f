// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sqlite/Sqlite.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>

#include "platform/sqlite/PageSums.h"
#include "platform/sqlite/StoreError.h"

namespace korvel::platform {
namespace {

int openFlags(SqliteDatabase::Mode mode) {
  switch (mode) {
    case SqliteDatabase::Mode::readOnly:
      return SQLITE_OPEN_READONLY;
    case SqliteDatabase::Mode::readWrite:
      return SQLITE_OPEN_READWRITE;
    case SqliteDatabase::Mode::create:
      return SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    case SqliteDatabase::Mode::lockedByUs:
      return SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
  }
  return SQLITE_OPEN_READONLY;
}

/// A file that cannot change is read without asking for a lock, which we have ourselves.
std::string nameFor(const std::string& file, SqliteDatabase::Mode mode) {
  if (mode != SqliteDatabase::Mode::lockedByUs) return file;
  std::string name = file.starts_with('/') ? "file://" : "file:";
  for (const char c : file) {
    if (c == '%')
      name += "%25";
    else if (c == '?')
      name += "%3f";
    else if (c == '#')
      name += "%23";
    else
      name += c;
  }
  return name + "?immutable=1";
}

StoreError::Reason reasonOf(int code) {
  switch (code & 0xff) {
    case SQLITE_NOTADB:
      return StoreError::Reason::notAStore;
    case SQLITE_CORRUPT:
      return StoreError::Reason::damaged;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return StoreError::Reason::inUse;
    default:
      return StoreError::Reason::failed;
  }
}

/// What was to be done, what SQLite says to it, and what to do.
Phrase phraseFor(int code) {
  switch (code & 0xff) {
    case SQLITE_FULL:
      return phrase("Message", "%1: %2; make room on the disk and try again");
    case SQLITE_IOERR:
      return phrase("Message", "%1: %2; look whether the disk is full or fails, and try again");
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
      return phrase("Message", "%1: %2; look at the permissions of the store and its folder");
    default:
      return phrase("Message", "%1: %2");
  }
}

UserText problemOf(int code, const Phrase& doing, const char* message) {
  switch (reasonOf(code)) {
    case StoreError::Reason::inUse:
      return phrase("Message", "the store is in use by another program; close that one first");
    case StoreError::Reason::damaged:
      return {phrase("Message",
                     "the store is damaged (%1); restore a backup of it by \"korvel-cli restore\""),
              message};
    default:
      return {phraseFor(code), doing, message};
  }
}

}  // namespace

/// An open file and its name, which a database and its statements share.
class SqliteDatabase::Connection {
 public:
  Connection(std::string file, Mode mode) : m_file(std::move(file)) {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(nameFor(m_file, mode).c_str(), &opened,
                                       openFlags(mode) | SQLITE_OPEN_NOMUTEX, SummedFiles::vfs());
    m_handle.reset(opened);
    if (result != SQLITE_OK) fail(phrase("Message", "cannot open the store"));
    sqlite3_extended_result_codes(opened, 1);
    // A store may come from somebody else: what its tables are made of must not run as a program.
    sqlite3_db_config(opened, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    wantRoomForSums();
  }

  sqlite3* handle() const { return m_handle.get(); }
  const std::string& file() const { return m_file; }

  /// Throws what SQLite says about its last call.
  [[noreturn]] void fail(const Phrase& doing) const {
    const int code = m_handle ? sqlite3_errcode(handle()) : SQLITE_NOMEM;
    fail(code, doing, m_handle ? sqlite3_errmsg(handle()) : "out of memory");
  }
  [[noreturn]] void fail(int code, const Phrase& doing, const char* message) const {
    if (reasonOf(code) == StoreError::Reason::notAStore) throw StoreError::notAStore(m_file);
    throw StoreError(reasonOf(code), m_file, problemOf(code, doing, message));
  }
  /// In a database that is empty, or vacuumed next.
  void wantRoomForSums() const {
    int bytes = PageSums::kSize;
    sqlite3_file_control(handle(), "main", SQLITE_FCNTL_RESERVE_BYTES, &bytes);
  }
  /// Asks the file something of `SummedFiles`.
  void ask(int request, void* answer) const {
    const int result = sqlite3_file_control(handle(), "main", request, answer);
    if (result != SQLITE_OK)
      fail(result, phrase("Message", "cannot read or write the store"), sqlite3_errstr(result));
  }

 private:
  struct Close {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
  };
  std::string m_file;
  std::unique_ptr<sqlite3, Close> m_handle;
};

SqliteDatabase::SqliteDatabase(std::string file, Mode mode)
    : m_connection(std::make_shared<const Connection>(std::move(file), mode)) {}

SqliteDatabase::~SqliteDatabase() = default;

const std::string& SqliteDatabase::file() const { return m_connection->file(); }

bool SqliteDatabase::isReadOnly() const {
  if (sqlite3_db_readonly(m_connection->handle(), "main") == 1) return true;
  const std::filesystem::path folder = std::filesystem::path(file()).parent_path();
  return ::faccessat(AT_FDCWD, folder.empty() ? "." : folder.c_str(), W_OK, AT_EACCESS) != 0;
}

void SqliteDatabase::execute(const std::string& sql) {
  if (sqlite3_exec(m_connection->handle(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    m_connection->fail(phrase("Message", "cannot change the store"));
}

void SqliteDatabase::interrupt() { sqlite3_interrupt(m_connection->handle()); }

SqliteStatement SqliteDatabase::prepare(const std::string& sql) { return {*this, sql}; }

std::int64_t SqliteDatabase::integer(const std::string& sql) {
  SqliteStatement statement(*this, sql);
  return statement.step() ? statement.integer(0) : 0;
}

std::string SqliteDatabase::text(const std::string& sql) {
  SqliteStatement statement(*this, sql);
  return statement.step() ? std::string(statement.text(0)) : std::string();
}

std::vector<std::string> SqliteDatabase::column(const std::string& sql) {
  std::vector<std::string> values;
  SqliteStatement statement(*this, sql);
  while (statement.step()) values.emplace_back(statement.text(0));
  return values;
}

void SqliteDatabase::copyTo(SqliteDatabase& target) {
  const Connection& copy = *target.m_connection;
  // Pages come with the sums that they have, if any; the first one gets another counter.
  copy.ask(SummedFiles::kLeave, nullptr);
  sqlite3_backup* backup =
      sqlite3_backup_init(copy.handle(), "main", m_connection->handle(), "main");
  if (!backup) copy.fail(phrase("Message", "cannot write the copy"));
  const int copied = sqlite3_backup_step(backup, -1);
  const int finished = sqlite3_backup_finish(backup);
  copy.wantRoomForSums();  // The copy wants what the original has.
  // What is new cannot be damaged.
  if (reasonOf(copied) == StoreError::Reason::damaged)
    m_connection->fail(copied, phrase("Message", "cannot read the store"), sqlite3_errstr(copied));
  if (copied != SQLITE_DONE || finished != SQLITE_OK)
    copy.fail(phrase("Message", "cannot write the copy"));
}

SummedFiles::State SqliteDatabase::sums() const {
  auto state = SummedFiles::State::noRoom;
  m_connection->ask(SummedFiles::kState, &state);
  return state;
}

// Pages that SQLite has in memory would come into journals without their sums, and be taken for
// damaged when they were put back.
void SqliteDatabase::renewSums() {
  sqlite3_stmt* statement = nullptr;
  while ((statement = sqlite3_next_stmt(m_connection->handle(), statement)))
    if (sqlite3_stmt_busy(statement)) return;
  m_connection->ask(SummedFiles::kRenew, nullptr);
  sqlite3_db_release_memory(m_connection->handle());
}

void SqliteStatement::Finalize::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

SqliteStatement::SqliteStatement(const SqliteDatabase& database, const std::string& sql)
    : m_connection(database.m_connection) {
  sqlite3_stmt* statement = nullptr;
  const int result =
      sqlite3_prepare_v2(m_connection->handle(), sql.c_str(), -1, &statement, nullptr);
  m_statement.reset(statement);
  check(result);
}

void SqliteStatement::check(int result) const {
  if (result != SQLITE_OK) m_connection->fail(phrase("Message", "cannot read the store"));
}

void SqliteStatement::bindNull(int index) {
  check(sqlite3_bind_null(m_statement.get(), index + 1));
}

void SqliteStatement::bind(int index, std::int64_t value) {
  check(sqlite3_bind_int64(m_statement.get(), index + 1, value));
}

void SqliteStatement::bind(int index, double value) {
  check(sqlite3_bind_double(m_statement.get(), index + 1, value));
}

// Bound texts and bytes are read when the statement runs; callers keep them alive until then.
void SqliteStatement::bind(int index, std::string_view value) {
  const char* data = value.data() ? value.data() : "";
  check(sqlite3_bind_text64(m_statement.get(), index + 1, data, value.size(), SQLITE_STATIC,
                            SQLITE_UTF8));
}

void SqliteStatement::bind(int index, std::span<const std::byte> value) {
  if (value.empty()) {
    check(sqlite3_bind_zeroblob(m_statement.get(), index + 1, 0));
    return;
  }
  check(
      sqlite3_bind_blob64(m_statement.get(), index + 1, value.data(), value.size(), SQLITE_STATIC));
}

bool SqliteStatement::step() {
  const int result = sqlite3_step(m_statement.get());
  if (result == SQLITE_ROW) return true;
  if (result != SQLITE_DONE)
    m_connection->fail(phrase("Message", "cannot read or write the store"));
  return false;
}

void SqliteStatement::run() {
  try {
    step();
  } catch (const StoreError&) {
    reset();
    throw;
  }
  reset();
}

void SqliteStatement::reset() { sqlite3_reset(m_statement.get()); }

bool SqliteStatement::isNull(int column) const {
  return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}

std::int64_t SqliteStatement::integer(int column) const {
  return sqlite3_column_int64(m_statement.get(), column);
}

double SqliteStatement::real(int column) const {
  return sqlite3_column_double(m_statement.get(), column);
}

std::string_view SqliteStatement::text(int column) const {
  const auto* bytes = sqlite3_column_blob(m_statement.get(), column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column));
  return bytes ? std::string_view(static_cast<const char*>(bytes), size) : std::string_view();
}

std::span<const std::byte> SqliteStatement::blob(int column) const {
  const auto* bytes = sqlite3_column_blob(m_statement.get(), column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column));
  return {static_cast<const std::byte*>(bytes), size};
}

SqliteTransaction::SqliteTransaction(SqliteDatabase& database) : m_database(database) {
  m_database.execute("BEGIN IMMEDIATE");
}

SqliteTransaction::~SqliteTransaction() {
  if (!m_open) return;
  try {
    m_database.execute("ROLLBACK");
  } catch (const StoreError&) {
    // SQLite has rolled back by itself already, as it does when the disk is full.
  }
}

void SqliteTransaction::commit() {
  m_database.execute("COMMIT");
  m_open = false;
}

std::string sqlName(std::string_view name) {
  std::string text = "\"";
  for (const char c : name) text += c == '"' ? std::string("\"\"") : std::string(1, c);
  return text + '"';
}

}  // namespace korvel::platform
