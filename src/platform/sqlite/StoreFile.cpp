// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sqlite/StoreFile.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>

#include "platform/files/Files.h"
#include "platform/sqlite/StoreError.h"

namespace korvel::platform {
namespace {

namespace fs = std::filesystem;

// The first 100 bytes of every SQLite file; numbers are big-endian.
constexpr std::size_t kHeaderSize = 100;
constexpr std::size_t kUserVersionAt = 60;
constexpr std::size_t kApplicationIdAt = 68;
constexpr std::string_view kMagic("SQLite format 3\0", 16);

// Checking a store up to this size takes a few hundredths of a second at opening. Larger ones are
// checked before the first change.
constexpr std::int64_t kCheckedAtOpening = 8 << 20;

std::int32_t bigEndian(const std::array<char, kHeaderSize>& header, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i)
    value = value << 8 | static_cast<unsigned char>(header[at + i]);
  return static_cast<std::int32_t>(value);
}

std::string columnDefinition(const AttributeDescription& attribute) {
  return sqlName(attribute.name) + " " + attribute.columnType;
}

std::string columnDefinition(const ToOneDescription& toOne) {
  return sqlName(toOne.name) + " INTEGER REFERENCES " + sqlName(toOne.target) +
         "(id) ON DELETE SET NULL DEFERRABLE INITIALLY DEFERRED";
}

std::string tableDefinition(const EntityDescription& entity) {
  std::string columns = "id INTEGER PRIMARY KEY";
  for (const AttributeDescription& attribute : entity.attributes)
    columns += ", " + columnDefinition(attribute);
  for (const ToOneDescription& toOne : entity.toOnes) columns += ", " + columnDefinition(toOne);
  return "CREATE TABLE " + sqlName(entity.name) + "(" + columns + ")";
}

std::string indexName(const EntityDescription& entity, const ToOneDescription& toOne) {
  return sqlName(entity.name + "_" + toOne.name);
}

std::string indexDefinition(const EntityDescription& entity, const ToOneDescription& toOne) {
  return "CREATE INDEX IF NOT EXISTS " + indexName(entity, toOne) + " ON " + sqlName(entity.name) +
         "(" + sqlName(toOne.name) + ")";
}

bool contains(const std::vector<std::string>& names, const std::string& name) {
  return std::ranges::find(names, name) != names.end();
}

StoreError damaged(const std::string& path) {
  return {StoreError::Reason::damaged, path,
          phrase("Message", "the store is damaged; restore a backup of it")};
}

/// The rows of an entity that no owner reaches. The first owner's index finds the few candidates.
std::string unreachable(const EntityDescription& entity) {
  std::string condition;
  std::string index;
  for (const ToOneDescription& toOne : entity.toOnes) {
    if (!toOne.inverseMembers) continue;
    if (index.empty()) index = indexName(entity, toOne);
    condition += (condition.empty() ? "" : " AND ") + sqlName(toOne.name) + " IS NULL";
  }
  return sqlName(entity.name) + " INDEXED BY " + index + " WHERE " + condition;
}

}  // namespace

StoreFile::StoreFile(std::string path, const ObjectModel& model, Format format)
    : m_path(std::move(path)), m_model(model), m_format(format) {}

std::unique_ptr<SqliteDatabase> StoreFile::create() const {
  if (isThere(m_path))
    throw StoreError(StoreError::Reason::failed, m_path,
                     phrase("Message", "there is a file of that name already"));
  auto store = std::make_unique<SqliteDatabase>(m_path, SqliteDatabase::Mode::create);
  lock(*store);
  SqliteTransaction change(*store);
  for (const std::string& part : missingParts(*store)) store->execute(part);
  store->execute("PRAGMA application_id = " + std::to_string(m_format.applicationId));
  store->execute("PRAGMA user_version = " + std::to_string(m_format.version));
  change.commit();
  return store;
}

std::unique_ptr<SqliteDatabase> StoreFile::open() const {
  inspectHeader();
  auto store = std::make_unique<SqliteDatabase>(m_path, SqliteDatabase::Mode::readWrite);
  lock(*store);
  checkSize(*store);
  if (store->isReadOnly()) {
    requireComplete(*store);
    return store;
  }
  migrate(*store);
  sweep(*store);
  return store;
}

// Looks at the bytes before SQLite does: opening a foreign database could already change it.
void StoreFile::inspectHeader() const {
  using Reason = StoreError::Reason;
  std::error_code error;
  if (!isThere(m_path))
    throw StoreError(Reason::failed, m_path, phrase("Message", "there is no such store"));
  if (!fs::is_regular_file(m_path, error)) throw StoreError::notAStore(m_path);
  std::array<char, kHeaderSize> header{};
  std::ifstream file(m_path, std::ios::binary);
  if (!file)
    throw StoreError(Reason::failed, m_path,
                     phrase("Message", "the store cannot be read; check its rights"));
  file.read(header.data(), header.size());
  if (file.gcount() != kHeaderSize || std::string_view(header.data(), kMagic.size()) != kMagic ||
      bigEndian(header, kApplicationIdAt) != m_format.applicationId)
    throw StoreError::notAStore(m_path);
  if (bigEndian(header, kUserVersionAt) > m_format.version)
    throw StoreError(
        Reason::newer, m_path,
        phrase("Message",
               "the store was written by a newer Korvel; update the program to open it"));
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
    throw StoreError(
        StoreError::Reason::failed, m_path,
        phrase("Message",
               "the store cannot be switched to a rollback journal; restore a backup of it"));
}

void StoreFile::checkSize(SqliteDatabase& store) const {
  const std::int64_t expected =
      store.integer("PRAGMA page_count") * store.integer("PRAGMA page_size");
  const auto actual = static_cast<std::int64_t>(fs::file_size(m_path));
  if (actual < expected) throw damaged(m_path);
  if (actual <= kCheckedAtOpening) requireSound(store);
}

void StoreFile::requireSound(SqliteDatabase& store) {
  if (store.text("PRAGMA quick_check(1)") != "ok") throw damaged(store.file());
}

std::vector<std::string> StoreFile::missingParts(SqliteDatabase& store) const {
  std::vector<std::string> statements;
  const auto tables = store.column("SELECT name FROM sqlite_schema WHERE type = 'table'");
  const auto indexes = store.column("SELECT name FROM sqlite_schema WHERE type = 'index'");
  for (const EntityDescription& entity : m_model.entities()) {
    if (!contains(tables, entity.name)) {
      statements.push_back(tableDefinition(entity));
    } else {
      const auto columns =
          store.column("SELECT name FROM pragma_table_info('" + entity.name + "')");
      const auto add = [&](const auto& part) {
        if (!contains(columns, part.name))
          statements.push_back("ALTER TABLE " + sqlName(entity.name) + " ADD COLUMN " +
                               columnDefinition(part));
      };
      std::ranges::for_each(entity.attributes, add);
      std::ranges::for_each(entity.toOnes, add);
    }
    for (const ToOneDescription& toOne : entity.toOnes)
      if (!contains(indexes, entity.name + "_" + toOne.name))
        statements.push_back(indexDefinition(entity, toOne));
  }
  return statements;
}

void StoreFile::migrate(SqliteDatabase& store) const {
  const std::int64_t version = store.integer("PRAGMA user_version");
  const std::vector<std::string> missing = missingParts(store);
  if (missing.empty() && version == m_format.version) return;
  requireSound(store);
  if (!missing.empty()) backup(store, backupName(version));
  SqliteTransaction change(store);
  for (const std::string& part : missing) store.execute(part);
  store.execute("PRAGMA user_version = " + std::to_string(m_format.version));
  change.commit();
}

void StoreFile::requireComplete(SqliteDatabase& store) const {
  if (missingParts(store).empty()) return;
  throw StoreError(
      StoreError::Reason::failed, m_path,
      phrase("Message",
             "the store is of an older Korvel and cannot be written, so it cannot be "
             "brought up to date; look at the permissions of the store and its folder"));
}

std::string StoreFile::backupName(std::int64_t version) const {
  const std::string base = m_path + ".backup-of-version-" + std::to_string(version);
  std::string name = base;
  for (int i = 2; isThere(name); ++i) name = base + "-" + std::to_string(i);
  return name;
}

// Deleting leaves things behind on purpose: measures of a song, spectra of an instrument, blocks of
// a chord. What only those reach goes in the next round.
void StoreFile::sweep(SqliteDatabase& store) const {
  std::vector<std::string> found;
  const auto search = [&] {
    found.clear();
    for (const EntityDescription& entity : m_model.entities())
      if (!entity.root && store.integer("SELECT EXISTS(SELECT 1 FROM " + unreachable(entity) + ")"))
        found.push_back("DELETE FROM " + unreachable(entity));
    return !found.empty();
  };
  if (!search()) return;
  requireSound(store);
  SqliteTransaction change(store);
  do {
    for (const std::string& removal : found) store.execute(removal);
  } while (search());
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

void StoreFile::backup(SqliteDatabase& store, const std::string& target) {
  const std::string part = target + ".part";
  std::error_code ignored;
  fs::remove(part, ignored);
  try {
    SqliteDatabase copy(part, SqliteDatabase::Mode::create);
    store.copyTo(copy);
    if (!problems(copy).empty())
      throw StoreError(
          StoreError::Reason::damaged, store.file(),
          phrase("Message", "the store is damaged and cannot be copied; restore a backup of it"));
  } catch (...) {
    fs::remove(part, ignored);
    throw;
  }
  fs::rename(part, target);
}

}  // namespace korvel::platform
