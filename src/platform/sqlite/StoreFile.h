// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/persistence/ObjectModel.h"
#include "platform/sqlite/Sqlite.h"
#include "platform/sqlite/StoreHeader.h"

namespace korvel::platform {

class NewFile;
class StoreError;

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
  /// backup was written beside the store. Rows that nothing reaches any more are removed, and a
  /// small store gets sums of its pages (`SummedFiles`) if it has none. Throws StoreError and
  /// leaves the file untouched when it is missing, not a store, newer, damaged or in use. One that
  /// cannot be written is opened as it is
  /// (`SqliteDatabase::isReadOnly`), and refused when something would have to be added.
  std::unique_ptr<SqliteDatabase> open() const;

  /// A quick check of every page. Throws StoreError when the store is damaged.
  static void requireSound(SqliteDatabase& store);
  /// Gives the pages of a store that was found sound their sums, when another program has written
  /// it. It stays without where that cannot be done.
  static void renewSums(SqliteDatabase& store);
  /// Problems found in an open store by a complete check; empty when it is sound.
  static std::vector<std::string> problems(SqliteDatabase& store);
  /// Copies an open store into a file, which is complete and checked or does not appear at all.
  /// Also throws FileError.
  static void backup(SqliteDatabase& store, const std::string& target);
  /// Puts a copy of a backup in the store's place, after a check, and answers under which name the
  /// store is kept that was there; none if there was none. Its journal goes with it. The store is
  /// the old one or the new one whenever the process dies. Throws StoreError or FileError, and
  /// nothing has changed then.
  std::string restore(const std::string& backup) const;
  /// To be called before another store gets this place: a journal that was left by one that has
  /// been moved away would be taken for that of the new one.
  void setJournalsAside() const;

 private:
  void inspectHeader() const;
  StoreHeader headerToJudge(const StoreHeader& header) const;
  StoreError notAStore() const;
  void setForeignJournalAside() const;
  std::filesystem::path folderOfStore() const;
  static void requirePlain(SqliteDatabase& store);
  /// As `renewSums`, in a store of before too, which is written anew for it.
  static void keepSums(SqliteDatabase& store);
  static void copyInto(SqliteDatabase& store, const NewFile& file);
  void requireRestorable(const std::string& backup) const;
  void requireUnused() const;
  static std::string keepBeside(const std::string& store);
  void lock(SqliteDatabase& store) const;
  void checkSize(SqliteDatabase& store) const;
  bool isSmall() const;
  void migrate(SqliteDatabase& store) const;
  void requireComplete(SqliteDatabase& store) const;
  void sweep(SqliteDatabase& store) const;

  std::string m_path;
  const ObjectModel& m_model;
  Format m_format;
};

}  // namespace korvel::platform
