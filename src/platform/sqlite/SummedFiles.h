// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::platform {

/// SQLite's own way to files, with a sum for each page of a database that has room for them
/// (`PageSums`): put when a page is written, and looked at when one is read. A page that is not as
/// it was written is SQLITE_CORRUPT. Journals and temporary files are as ever.
///
/// A database keeps sums from its first page on when it is made with room for them
/// (SQLITE_FCNTL_RESERVE_BYTES). One that another program has written since is read without, and
/// stays so until `renew`.
struct SummedFiles {
  /// The name to open databases with. From any thread.
  static const char* vfs();

  // What a connection may ask of its file by sqlite3_file_control, beside no statement that runs
  // and with nobody else at the file.

  enum class State {
    noRoom,    ///< For sums. VACUUM makes some, as connections ask for it.
    outdated,  ///< Another program has written the database, or nobody has put them yet.
    kept,
  };
  /// How it stands in the file itself; answers into a State. SQLITE_CORRUPT when the first page is
  /// not as it was written.
  static constexpr int kState = 0x4b520001;
  /// Takes what is in the file for right and gives each page its sum, the first one last. Takes
  /// nothing; SQLITE_NOTFOUND when there is no room. The connection must forget then what it has
  /// read before: its copies of pages lack the sums.
  static constexpr int kRenew = 0x4b520002;
  /// Has it count as written by another program, until `kRenew`. Takes nothing.
  static constexpr int kLeave = 0x4b520003;
};

}  // namespace korvel::platform
