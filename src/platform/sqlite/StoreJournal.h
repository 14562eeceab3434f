// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <string>

#include "platform/sqlite/StoreHeader.h"

namespace korvel::platform {

/// The journal beside a store: the pages of a change that was not finished, as they were before it.
/// SQLite puts them back when it opens the store next, whether or not the store is the one that
/// they come from. The format is SQLite's.
class StoreJournal {
 public:
  /// Looks at the journal of that store, if there is one.
  explicit StoreJournal(const std::string& store);

  static std::string nameFor(const std::string& store) { return realName(store) + "-journal"; }
  /// Of a store that is a symbolic link, the file that it leads to: its journal is beside that.
  static std::string realName(const std::string& store);

  /// Whether there is something to put back.
  bool isHot() const { return m_isHot; }
  /// Whether the change was one of the store that begins like this. A beginning that was lost in
  /// the change, and so is no SQLite file's, belongs to the journal that has kept it.
  bool isOf(const StoreHeader& store) const;
  /// The beginning of the store before the change, if that was to be changed.
  const std::optional<StoreHeader>& before() const { return m_before; }

 private:
  struct Segment;
  std::int64_t readSegment(std::istream& file, std::int64_t at);
  void readPages(std::istream& file, const Segment& segment);

  bool m_isHot = false;
  std::uint32_t m_pagesBefore = 0;
  std::int64_t m_size = 0;
  std::int64_t m_sector = 0;  ///< Each segment begins at a multiple of this.
  std::optional<StoreHeader> m_before;
};

}  // namespace korvel::platform
