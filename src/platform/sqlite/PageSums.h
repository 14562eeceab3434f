// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace korvel::platform {

/// What tells whether a page of a store is as it was written. SQLite leaves the last bytes of each
/// page alone when the store says so in its header, at 20; these eight hold two numbers,
/// big-endian:
///
///  - a mark: the number of the page, from 1; for the first page the store's change counter,
///  - a sum of all bytes before it, the mark included.
///
/// A change within eight bytes, or any other, goes unseen once in four billion times.
struct PageSums {
  static constexpr std::size_t kSize = 8;
  static constexpr std::size_t kSmallestPage = 512;

  /// What the first page says of the whole store.
  enum class Kept {
    no,       ///< There is no room for sums, or they are not those of what is stored: another
              ///< program has written it since, which changes the counter but not the mark.
    yes,      ///< All pages have them.
    damaged,  ///< The first page itself is not as it was written.
  };
  static Kept judge(std::span<const std::byte> firstPage);

  /// Whether these are the bytes of a whole page that begins a store, as far as they tell.
  static bool isFirstPage(std::span<const std::byte> bytes);
  /// Whether the pages of the store that begins like this end in room for sums.
  static bool haveRoom(std::span<const std::byte> firstPage);

  static bool isRight(std::span<const std::byte> page, std::uint32_t number);
  static void put(std::span<std::byte> page, std::uint32_t number);
  /// Has the store count as one that another program has written.
  static void remove(std::span<std::byte> firstPage);

  /// What the header says that a store begins with.
  static std::size_t pageSize(std::span<const std::byte> header);
  static std::uint32_t pageCount(std::span<const std::byte> header);

  // Free pages are listed on some of them. 0 stands for no further list.
  static std::uint32_t firstFreeList(std::span<const std::byte> header);
  static std::uint32_t nextFreeList(std::span<const std::byte> list);
  static bool isInFreeList(std::span<const std::byte> list, std::uint32_t number);
};

}  // namespace korvel::platform
