// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/persistence/ObjectModel.h"
#include "platform/sqlite/Sqlite.h"

namespace korvel::platform {

/// A store file: one SQLite database whose tables are the entities of a model. Opens it safely,
/// brings older ones up to the model, copies and checks it.
class StoreFile {
 public:
  struct Format {
    std::int32_t applicationId;  ///< Marks the file as ours.
    std::int32_t version;        ///< Of the model; a store of a higher one is refused.
  };

  StoreFile(std::string path, const ObjectModel& model, Format format);

  /// Writes a new, empty store. The file must not exist.
  std::unique_ptr<SqliteDatabase> create() const;

  /// Opens the store for this process alone. Missing tables and columns are added, after a checked
  /// backup was written beside the store. Rows that nothing reaches any more are removed.
  /// Throws StoreError and leaves the file untouched when it is missing, not a store, newer,
  /// damaged or in use. One that cannot be written is opened as it is
  /// (`SqliteDatabase::isReadOnly`), and refused when something would have to be added.
  std::unique_ptr<SqliteDatabase> open() const;

  /// A quick check of every page. Throws StoreError when the store is damaged.
  static void requireSound(SqliteDatabase& store);
  /// Problems found in an open store by a complete check; empty when it is sound.
  static std::vector<std::string> problems(SqliteDatabase& store);
  /// Copies an open store into a file, which is complete and checked or does not appear at all.
  static void backup(SqliteDatabase& store, const std::string& target);

 private:
  void inspectHeader() const;
  void lock(SqliteDatabase& store) const;
  void checkSize(SqliteDatabase& store) const;
  void migrate(SqliteDatabase& store) const;
  void requireComplete(SqliteDatabase& store) const;
  std::vector<std::string> missingParts(SqliteDatabase& store) const;
  void sweep(SqliteDatabase& store) const;
  std::string backupName(std::int64_t version) const;

  std::string m_path;
  const ObjectModel& m_model;
  Format m_format;
};

}  // namespace korvel::platform
