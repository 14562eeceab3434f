// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sqlite/PageSums.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <vector>

namespace korvel::platform {
namespace {

using PageBytes = std::span<const std::byte>;

// Where SQLite's header has what.
constexpr std::size_t kPageSizeAt = 16;
constexpr std::size_t kRoomAt = 20;
constexpr std::size_t kChangeCounterAt = 24;
constexpr std::size_t kPageCountAt = 28;
constexpr std::size_t kFreeListAt = 32;
constexpr std::size_t kCounterOfLastWriterAt = 92;

/// Too large a page for its place in the header, where 1 stands for it.
constexpr std::size_t kSizeOfOne = 65536;
constexpr std::size_t kMarkSize = 4;

struct Sum {
  std::uint32_t mark;
  std::uint32_t sum;
  bool operator==(const Sum&) const = default;
};

std::uint32_t numberIn(PageBytes bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (const std::byte byte : bytes.subspan(at, 4))
    value = value << 8 | std::to_integer<std::uint32_t>(byte);
  return value;
}

void putNumber(std::span<std::byte> bytes, std::size_t at, std::uint32_t value) {
  for (std::size_t i = 4; i-- > 0; value >>= 8) bytes[at + i] = static_cast<std::byte>(value);
}

/// Little-endian on every machine, since stores move between them.
std::uint64_t wordAt(const std::byte* bytes) {
  std::uint64_t word;
  std::memcpy(&word, bytes, sizeof word);
  if constexpr (std::endian::native == std::endian::big) word = __builtin_bswap64(word);
  return word;
}

/// Differs whenever one of the two does. The turn brings high bits down, which multiplying does
/// not.
std::uint64_t folded(std::uint64_t sum, std::uint64_t word) {
  constexpr std::uint64_t kOdd = 0x9e3779b97f4a7c15;
  constexpr int kTurn = 29;
  return std::rotl(sum ^ word, kTurn) * kOdd;
}

/// The words go into eight sums by turns, which the processor works on at the same time.
std::uint32_t sumOf(PageBytes content, std::uint32_t mark) {
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  std::array<std::uint64_t, 8> sums{1, 2, 3, 4, 5, 6, 7, 8};
  const std::byte* at = content.data();
  const std::byte* const end = at + content.size();
  for (; static_cast<std::size_t>(end - at) >= sums.size() * kWord; at += sums.size() * kWord)
    for (std::size_t i = 0; i < sums.size(); ++i) sums[i] = folded(sums[i], wordAt(at + i * kWord));
  for (std::size_t i = 0; at < end; ++i, at += kWord) sums[i] = folded(sums[i], wordAt(at));
  std::uint64_t whole = mark;
  for (const std::uint64_t sum : sums) whole = folded(whole, sum);
  return static_cast<std::uint32_t>(whole ^ whole >> 32);
}

Sum computed(PageBytes page, std::uint32_t number) {
  const std::uint32_t mark = number == 1 ? numberIn(page, kChangeCounterAt) : number;
  return {mark, sumOf(page.first(page.size() - PageSums::kSize), mark)};
}

Sum stored(PageBytes page) {
  const PageBytes sum = page.last(PageSums::kSize);
  return {numberIn(sum, 0), numberIn(sum, kMarkSize)};
}

/// Whether the byte that tells of the room is all that is wrong.
bool hasLostRoom(PageBytes firstPage) {
  std::vector<std::byte> page(firstPage.begin(), firstPage.end());
  page[kRoomAt] = std::byte{PageSums::kSize};
  return PageSums::isRight(page, 1);
}

}  // namespace

PageSums::Kept PageSums::judge(PageBytes firstPage) {
  if (!haveRoom(firstPage)) return hasLostRoom(firstPage) ? Kept::damaged : Kept::no;
  const Sum found = stored(firstPage);
  const Sum right = computed(firstPage, 1);
  if (found == right) return Kept::yes;
  if (found == Sum{0, 0}) return Kept::no;
  // Whoever writes a store counts it at both places, and leaves the sum as it was.
  const bool isCounted =
      numberIn(firstPage, kChangeCounterAt) == numberIn(firstPage, kCounterOfLastWriterAt);
  const bool isOfAnotherWriter = isCounted && found.mark != right.mark && found.sum != right.sum;
  return isOfAnotherWriter ? Kept::no : Kept::damaged;
}

bool PageSums::isFirstPage(PageBytes bytes) {
  return bytes.size() >= kSmallestPage && bytes.size() == pageSize(bytes);
}

bool PageSums::haveRoom(PageBytes firstPage) { return firstPage[kRoomAt] == std::byte{kSize}; }

bool PageSums::isRight(PageBytes page, std::uint32_t number) {
  return stored(page) == computed(page, number);
}

void PageSums::put(std::span<std::byte> page, std::uint32_t number) {
  const Sum sum = computed(page, number);
  putNumber(page, page.size() - kSize, sum.mark);
  putNumber(page, page.size() - kSize + kMarkSize, sum.sum);
}

void PageSums::remove(std::span<std::byte> firstPage) {
  std::ranges::fill(firstPage.last(kSize), std::byte{0});
}

std::size_t PageSums::pageSize(PageBytes header) {
  const std::size_t size = numberIn(header, kPageSizeAt) >> 16;
  return size == 1 ? kSizeOfOne : size;
}

std::uint32_t PageSums::pageCount(PageBytes header) { return numberIn(header, kPageCountAt); }

std::uint32_t PageSums::firstFreeList(PageBytes header) { return numberIn(header, kFreeListAt); }

std::uint32_t PageSums::nextFreeList(PageBytes list) { return numberIn(list, 0); }

bool PageSums::isInFreeList(PageBytes list, std::uint32_t number) {
  const std::size_t most = (list.size() - kSize) / 4;
  const std::size_t end = std::min<std::size_t>(numberIn(list, 4) + 2UL, most);
  for (std::size_t i = 2; i < end; ++i)
    if (numberIn(list, 4 * i) == number) return true;
  return false;
}

}  // namespace korvel::platform
