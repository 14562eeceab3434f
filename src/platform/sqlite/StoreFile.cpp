// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sqlite/StoreFile.h"

#include <fcntl.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "platform/files/Descriptor.h"
#include "platform/files/FileError.h"
#include "platform/files/Files.h"
#include "platform/files/Leftovers.h"
#include "platform/files/NewFile.h"
#include "platform/sqlite/StoreError.h"
#include "platform/sqlite/StoreJournal.h"
#include "platform/sqlite/StoreTables.h"

namespace korvel::platform {
namespace {

namespace fs = std::filesystem;

// Checking a store up to this size takes a few hundredths of a second at opening, and giving one of
// before room for sums a quarter of a second once. Larger ones are checked before the first change.
constexpr std::uintmax_t kCheckedAtOpening = 8 << 20;

// Where SQLite locks a file.
constexpr off_t kFirstLockedByte = 0x40000000;
constexpr off_t kLockedBytes = 512;

std::string freeName(const std::string& base) {
  std::string name = base;
  for (int i = 2; isThere(name); ++i) name = base + "-" + std::to_string(i);
  return name;
}

StoreError damaged(const std::string& path) {
  return {
      StoreError::Reason::damaged, path,
      phrase("Message", "the store is damaged; restore a backup of it by \"korvel-cli restore\"")};
}

/// For what only makes a store safer: where the disk has no room for it, all stays as it is.
void improve(const std::function<void()>& change) {
  try {
    change();
  } catch (const StoreError&) {
    // SQLite has taken it back, and sums count only when all are there.
  }
}

}  // namespace

StoreFile::StoreFile(std::string path, const ObjectModel& model, Format format)
    : m_path(std::move(path)), m_model(model), m_format(format) {}

std::unique_ptr<SqliteDatabase> StoreFile::create() const {
  if (isThere(m_path))
    throw StoreError(StoreError::Reason::failed, m_path,
                     phrase("Message", "there is a file of that name already"));
  setJournalsAside();
  auto store = std::make_unique<SqliteDatabase>(m_path, SqliteDatabase::Mode::create);
  lock(*store);
  SqliteTransaction change(*store);
  for (const std::string& part : StoreTables(*store, m_model).missingParts()) store->execute(part);
  store->execute("PRAGMA application_id = " + std::to_string(m_format.applicationId));
  store->execute("PRAGMA user_version = " + std::to_string(m_format.version));
  change.commit();
  return store;
}

std::unique_ptr<SqliteDatabase> StoreFile::open() const {
  inspectHeader();
  setForeignJournalAside();
  auto store = std::make_unique<SqliteDatabase>(m_path, SqliteDatabase::Mode::readWrite);
  lock(*store);
  requirePlain(*store);
  checkSize(*store);
  if (store->isReadOnly()) {
    requireComplete(*store);
    return store;
  }
  sweepLeftovers(folderOfStore());
  migrate(*store);
  sweep(*store);
  if (isSmall()) keepSums(*store);
  return store;
}

// Looks at the bytes before SQLite does: opening a foreign database could already change it.
void StoreFile::inspectHeader() const {
  using Reason = StoreError::Reason;
  std::error_code error;
  if (!isThere(m_path))
    throw StoreError(Reason::failed, m_path, phrase("Message", "there is no such store"));
  if (!fs::is_regular_file(m_path, error)) throw StoreError::notAStore(m_path);
  std::ifstream file(m_path, std::ios::binary);
  if (!file)
    throw StoreError(Reason::failed, m_path,
                     phrase("Message", "the store cannot be read; check its rights"));
  const StoreHeader header = headerToJudge(StoreHeader(file));
  if (!header.isSqlite() || header.applicationId() != m_format.applicationId) throw notAStore();
  if (header.userVersion() > m_format.version)
    throw StoreError(
        Reason::newer, m_path,
        phrase("Message",
               "the store was written by a newer Korvel; update the program to open it"));
}

/// What a change that was not finished has made of the beginning does not count: SQLite puts back
/// what was there.
StoreHeader StoreFile::headerToJudge(const StoreHeader& header) const {
  const StoreJournal journal(m_path);
  return !header.isSqlite() && journal.isOf(header) ? *journal.before() : header;
}

StoreError StoreFile::notAStore() const {
  const std::string journal = StoreJournal::nameFor(m_path);
  if (!isThere(journal)) return StoreError::notAStore(m_path);
  return {StoreError::Reason::notAStore, m_path,
          UserText(phrase("Message",
                          "not a Korvel store; move it and %1 away together, or choose another "
                          "file"),
                   journal)};
}

// A store that was copied over another one would get pages of that put into it.
void StoreFile::setForeignJournalAside() const {
  const StoreJournal journal(m_path);
  if (!journal.isHot()) return;
  std::ifstream file(m_path, std::ios::binary);
  if (!journal.isOf(StoreHeader(file))) setJournalsAside();
}

void StoreFile::setJournalsAside() const {
  for (const char* ending : {"-journal", "-wal", "-shm"}) {
    const std::string journal = StoreJournal::realName(m_path) + ending;
    if (!isThere(journal)) continue;
    std::error_code error;
    fs::rename(journal, freeName(journal + ".set-aside"), error);
    if (error)
      throw StoreError(StoreError::Reason::failed, m_path,
                       UserText(phrase("Message",
                                       "%1 belongs to another store and cannot be set aside; move "
                                       "it away"),
                                journal));
  }
}

// Exclusive from the first moment on, so that a second process cannot even read half-written work.
void StoreFile::lock(SqliteDatabase& store) const {
  store.execute("PRAGMA locking_mode = EXCLUSIVE");
  store.execute("PRAGMA synchronous = FULL");
  store.execute("PRAGMA foreign_keys = ON");
  store.execute("BEGIN EXCLUSIVE");
  store.execute("COMMIT");
  // A tool may have left it in write-ahead mode, in which a plain copy of the file lacks changes.
  if (store.text("PRAGMA journal_mode = DELETE") != "delete")
    throw StoreError(StoreError::Reason::failed, m_path,
                     phrase("Message",
                            "the store cannot be switched to a rollback journal; restore a backup "
                            "of it by \"korvel-cli restore\""));
}

void StoreFile::checkSize(SqliteDatabase& store) const {
  const std::int64_t expected =
      store.integer("PRAGMA page_count") * store.integer("PRAGMA page_size");
  const auto actual = static_cast<std::int64_t>(fs::file_size(m_path));
  if (actual < expected) throw damaged(m_path);
  if (isSmall()) requireSound(store);
}

bool StoreFile::isSmall() const { return fs::file_size(m_path) <= kCheckedAtOpening; }

void StoreFile::requirePlain(SqliteDatabase& store) {
  if (store.integer("SELECT EXISTS(SELECT 1 FROM sqlite_schema WHERE type IN ('trigger', 'view'))"))
    throw StoreError(StoreError::Reason::notAStore, store.file(),
                     phrase("Message",
                            "the store has triggers or views, which Korvel never makes and which "
                            "may do anything to it; use another one"));
}

fs::path StoreFile::folderOfStore() const {
  const fs::path folder = fs::path(m_path).parent_path();
  return folder.empty() ? fs::path(".") : folder;
}

void StoreFile::requireSound(SqliteDatabase& store) {
  if (store.text("PRAGMA quick_check(1)") != "ok") throw damaged(store.file());
}

void StoreFile::renewSums(SqliteDatabase& store) {
  improve([&] {
    if (store.sums() == SummedFiles::State::outdated) store.renewSums();
  });
}

void StoreFile::keepSums(SqliteDatabase& store) {
  improve([&] {
    if (store.sums() == SummedFiles::State::noRoom) store.execute("VACUUM");
  });
  renewSums(store);
}

void StoreFile::migrate(SqliteDatabase& store) const {
  const std::int64_t version = store.integer("PRAGMA user_version");
  const std::vector<std::string> missing = StoreTables(store, m_model).missingParts();
  if (missing.empty() && version == m_format.version) return;
  requireSound(store);
  if (!missing.empty())
    backup(store, freeName(m_path + ".backup-of-version-" + std::to_string(version)));
  SqliteTransaction change(store);
  for (const std::string& part : missing) store.execute(part);
  store.execute("PRAGMA user_version = " + std::to_string(m_format.version));
  change.commit();
  if (!missing.empty()) keepSums(store);
}

void StoreFile::requireComplete(SqliteDatabase& store) const {
  if (StoreTables(store, m_model).missingParts().empty()) return;
  throw StoreError(
      StoreError::Reason::failed, m_path,
      phrase("Message",
             "the store is of an older Korvel and cannot be written, so it cannot be "
             "brought up to date; look at the permissions of the store and its folder"));
}

// Deleting leaves things behind on purpose: measures of a song, spectra of an instrument, blocks of
// a chord. What only those reach goes in the next round.
void StoreFile::sweep(SqliteDatabase& store) const {
  const StoreTables tables(store, m_model);
  std::vector<std::string> removals = tables.removals();
  if (removals.empty()) return;
  requireSound(store);
  SqliteTransaction change(store);
  for (; !removals.empty(); removals = tables.removals())
    for (const std::string& removal : removals) store.execute(removal);
  change.commit();
}

std::vector<std::string> StoreFile::problems(SqliteDatabase& store) {
  std::vector<std::string> found = store.column("PRAGMA integrity_check");
  if (found == std::vector<std::string>{"ok"}) found.clear();
  auto violations = store.prepare("PRAGMA foreign_key_check");
  while (violations.step())
    found.push_back("row " + std::to_string(violations.integer(1)) + " of " +
                    std::string(violations.text(0)) + " points at a missing row of " +
                    std::string(violations.text(2)));
  return found;
}

void StoreFile::copyInto(SqliteDatabase& store, const NewFile& file) {
  SqliteDatabase copy(file.temporary(), SqliteDatabase::Mode::readWrite);
  // No journal of its own that a killed process would leave; the file does not appear half-written.
  copy.execute("PRAGMA journal_mode = MEMORY");
  store.copyTo(copy);
  if (!problems(copy).empty())
    throw StoreError(StoreError::Reason::damaged, store.file(),
                     phrase("Message",
                            "the store is damaged and cannot be copied; restore a backup of it by "
                            "\"korvel-cli restore\""));
  keepSums(copy);
}

void StoreFile::backup(SqliteDatabase& store, const std::string& target) {
  NewFile file(target, Existing::kept, Readers::ownerOnly);
  copyInto(store, file);
  if (!file.appear())
    throw StoreError(StoreError::Reason::failed, target,
                     phrase("Message", "there is a file of that name already"));
}

std::string StoreFile::restore(const std::string& backup) const {
  requireRestorable(backup);
  requireUnused();
  NewFile copy(m_path, Existing::replacedByStore, Readers::ownerOnly);
  SqliteDatabase source(backup, SqliteDatabase::Mode::readOnly);
  requirePlain(source);
  copyInto(source, copy);
  const std::string store = StoreJournal::realName(m_path);
  const std::string kept = keepBeside(store);
  if (kept.empty()) setJournalsAside();
  copy.appear();
  for (const char* ending : {"-journal", "-wal", "-shm"}) {
    std::error_code notThere;
    fs::remove(store + ending, notThere);
  }
  Descriptor(folderOfStore(), m_path, O_RDONLY | O_DIRECTORY, FileError::kCannotWrite).flush();
  return kept;
}

void StoreFile::requireRestorable(const std::string& backup) const {
  if (isSameFile(backup, m_path))
    throw StoreError(StoreError::Reason::failed, backup,
                     phrase("Message", "is the store itself; name a backup of it"));
  StoreFile(backup, m_model, m_format).inspectHeader();
  if (StoreJournal(backup).isHot())
    throw StoreError(
        StoreError::Reason::failed, backup,
        phrase("Message",
               "a change of it was not finished; open it as a store once, then restore it"));
}

// SQLite's own locks, which another process holds on these bytes of a store that it has open. A
// damaged one cannot be opened to ask.
void StoreFile::requireUnused() const {
  if (!isThere(m_path)) return;
  const Descriptor file(m_path, m_path, O_RDWR, FileError::kCannotRead);
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  lock.l_start = kFirstLockedByte;
  lock.l_len = kLockedBytes;
  if (::fcntl(file.number(), F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK)
    throw StoreError(
        StoreError::Reason::inUse, m_path,
        phrase("Message", "the store is in use by another program; close that one first"));
}

/// With its journal, so that it can still be recovered. Until the new store has the name, the old
/// one has it, too.
std::string StoreFile::keepBeside(const std::string& store) {
  if (!isThere(store)) return {};
  const std::string kept = freeName(store + ".before-restore");
  for (const char* ending : {"", "-journal", "-wal"}) {
    if (!isThere(store + ending)) continue;
    std::error_code noLinks;
    fs::create_hard_link(store + ending, kept + ending, noLinks);
    if (noLinks) fs::copy_file(store + ending, kept + ending);
  }
  return kept;
}

}  // namespace korvel::platform
