// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sqlite/SummedFiles.h"

#include <sqlite3.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/sqlite/PageSums.h"

namespace korvel::platform {
namespace {

using FileBytes = std::span<std::byte>;

constexpr std::size_t kHeaderLength = 100;
constexpr std::size_t kReadAtOnce = 1 << 18;
/// SQLite locks bytes here and stores nothing in their page.
constexpr std::int64_t kLockedBytesAt = 0x40000000;

/// A database's file. SQLite provides its memory, in which SQLite's own file follows.
struct SummedFile : sqlite3_file {
  enum class Sums {
    unknown,  ///< The first page was not seen. What is written is put back from a journal, and has
              ///< the sums that it had.
    none,
    kept,
  };
  Sums sums = Sums::unknown;
  std::size_t pageSize = 0;

  sqlite3_file* inner() { return reinterpret_cast<sqlite3_file*>(this + 1); }
  static SummedFile& of(sqlite3_file* file) { return *static_cast<SummedFile*>(file); }

  int readInner(FileBytes bytes, std::int64_t at) {
    return inner()->pMethods->xRead(inner(), bytes.data(), static_cast<int>(bytes.size()), at);
  }
  int writeInner(std::span<const std::byte> bytes, std::int64_t at) {
    return inner()->pMethods->xWrite(inner(), bytes.data(), static_cast<int>(bytes.size()), at);
  }
  bool isEmpty() {
    sqlite3_int64 size = 0;
    return inner()->pMethods->xFileSize(inner(), &size) == SQLITE_OK && size == 0;
  }
  std::uint32_t numberOf(std::int64_t at) const {
    return static_cast<std::uint32_t>(at / static_cast<std::int64_t>(pageSize)) + 1;
  }

  int judge(FileBytes firstPage);
  int check(FileBytes page, std::uint32_t number);
  bool isFree(std::uint32_t number);
  int checkAround(FileBytes bytes, std::int64_t at);
  int afterReading(FileBytes bytes, std::int64_t at);
  void beforeWriting(FileBytes page, std::int64_t at);
  template <class Visit>
  int forEachPage(const Visit& visit);
  int state(SummedFiles::State& state);
  int putWhereWrong(FileBytes page, std::uint32_t number);
  int renew();
};
static_assert(sizeof(SummedFile) % alignof(sqlite3_int64) == 0);

int SummedFile::judge(FileBytes firstPage) {
  const PageSums::Kept kept = PageSums::judge(firstPage);
  if (kept == PageSums::Kept::damaged) return SQLITE_CORRUPT;
  sums = kept == PageSums::Kept::yes ? Sums::kept : Sums::none;
  pageSize = firstPage.size();
  return SQLITE_OK;
}

int SummedFile::check(FileBytes page, std::uint32_t number) {
  return PageSums::isRight(page, number) || isFree(number) ? SQLITE_OK : SQLITE_CORRUPT;
}

// What free pages hold is nothing to anybody. A change that was not finished leaves its own in
// them, of which the journal keeps nothing, and they may never have been written.
bool SummedFile::isFree(std::uint32_t number) {
  std::vector<std::byte> page(pageSize);
  if (readInner(page, 0) != SQLITE_OK) return false;
  const std::uint32_t pages = PageSums::pageCount(page);
  std::uint32_t list = PageSums::firstFreeList(page);
  for (std::uint32_t seen = 0; list != 0 && list <= pages && seen < pages; ++seen) {
    const std::int64_t at = static_cast<std::int64_t>(pageSize) * (list - 1);
    if (readInner(page, at) != SQLITE_OK || !PageSums::isRight(page, list)) return false;
    if (PageSums::isInFreeList(page, number)) return true;
    list = PageSums::nextFreeList(page);
  }
  return false;
}

// SQLite may read a part of a page of a long text only.
int SummedFile::checkAround(FileBytes bytes, std::int64_t at) {
  const auto size = static_cast<std::int64_t>(pageSize);
  std::vector<std::byte> page(pageSize);
  const int result = readInner(page, at / size * size);
  if (result != SQLITE_OK) return result;
  if (const int checked = check(page, numberOf(at)); checked != SQLITE_OK) return checked;
  const auto within = static_cast<std::size_t>(at % size);
  std::ranges::copy(FileBytes(page).subspan(within, std::min(bytes.size(), pageSize - within)),
                    bytes.begin());
  return SQLITE_OK;
}

int SummedFile::afterReading(FileBytes bytes, std::int64_t at) {
  if (at == 0 && PageSums::isFirstPage(bytes)) return judge(bytes);
  // Of the first page SQLite reads the header before it knows more, and the counter to see whether
  // anybody has written.
  if (sums != Sums::kept || at < static_cast<std::int64_t>(kHeaderLength)) return SQLITE_OK;
  const bool isPage = bytes.size() == pageSize && at % static_cast<std::int64_t>(pageSize) == 0;
  if (!isPage) return checkAround(bytes, at);
  return check(bytes, numberOf(at));
}

void SummedFile::beforeWriting(FileBytes page, std::int64_t at) {
  const bool isPage = page.size() >= PageSums::kSmallestPage && std::has_single_bit(page.size()) &&
                      at % static_cast<std::int64_t>(page.size()) == 0;
  if (!isPage) return;
  if (at == 0) {
    if (!PageSums::haveRoom(page)) return;
    if (sums == Sums::unknown && isEmpty()) sums = Sums::kept;
    // Its counter must not come to what the sum is of.
    if (sums == Sums::none) PageSums::remove(page);
  }
  if (sums != Sums::kept) return;
  pageSize = page.size();
  PageSums::put(page, numberOf(at));
}

/// Shows each page that holds something, with its number, until `visit` answers an error.
template <class Visit>
int SummedFile::forEachPage(const Visit& visit) {
  std::vector<std::byte> header(kHeaderLength);
  if (const int result = readInner(header, 0); result != SQLITE_OK) return result;
  const std::size_t size = PageSums::pageSize(header);
  if (size < PageSums::kSmallestPage || !std::has_single_bit(size)) return SQLITE_CORRUPT;
  const std::int64_t end = static_cast<std::int64_t>(size) * PageSums::pageCount(header);
  std::vector<std::byte> many(std::max(size, kReadAtOnce));
  for (std::int64_t at = 0; at < end; at += static_cast<std::int64_t>(many.size())) {
    const auto left = static_cast<std::size_t>(end - at);
    const FileBytes pages = FileBytes(many).first(std::min(many.size(), left));
    if (const int result = readInner(pages, at); result != SQLITE_OK) return result;
    for (std::size_t within = 0; within < pages.size(); within += size) {
      const std::int64_t place = at + static_cast<std::int64_t>(within);
      if (place == kLockedBytesAt) continue;
      const auto number = static_cast<std::uint32_t>(place / static_cast<std::int64_t>(size)) + 1;
      if (const int result = visit(pages.subspan(within, size), number); result != SQLITE_OK)
        return result;
    }
  }
  return SQLITE_OK;
}

int SummedFile::state(SummedFiles::State& state) {
  state = SummedFiles::State::noRoom;
  const int result = forEachPage([&](FileBytes first, std::uint32_t) {
    const PageSums::Kept kept = PageSums::judge(first);
    if (kept == PageSums::Kept::damaged) return SQLITE_CORRUPT;
    if (kept == PageSums::Kept::yes)
      state = SummedFiles::State::kept;
    else if (PageSums::haveRoom(first))
      state = SummedFiles::State::outdated;
    return SQLITE_DONE;
  });
  return result == SQLITE_DONE ? SQLITE_OK : result;
}

int SummedFile::putWhereWrong(FileBytes page, std::uint32_t number) {
  if (PageSums::isRight(page, number)) return SQLITE_OK;
  PageSums::put(page, number);
  const std::int64_t end = static_cast<std::int64_t>(page.size()) * number;
  return writeInner(page.last(PageSums::kSize), end - static_cast<std::int64_t>(PageSums::kSize));
}

// The first page's sum says that all others are right, so that it comes when they are on the disk.
int SummedFile::renew() {
  const auto sync = [this] { return inner()->pMethods->xSync(inner(), SQLITE_SYNC_NORMAL); };
  std::vector<std::byte> first;
  int result = forEachPage([&](FileBytes page, std::uint32_t number) {
    if (number > 1) return putWhereWrong(page, number);
    first.assign(page.begin(), page.end());
    if (PageSums::judge(page) == PageSums::Kept::damaged) return SQLITE_CORRUPT;
    return PageSums::haveRoom(page) ? SQLITE_OK : SQLITE_NOTFOUND;
  });
  if (result == SQLITE_OK) result = sync();
  if (result == SQLITE_OK) result = putWhereWrong(first, 1);
  if (result == SQLITE_OK) result = sync();
  if (result == SQLITE_OK) result = judge(first);
  return result;
}

// ---- what SQLite calls

int closeFile(sqlite3_file* file) {
  sqlite3_file* inner = SummedFile::of(file).inner();
  return inner->pMethods->xClose(inner);
}

int readFile(sqlite3_file* file, void* bytes, int size, sqlite3_int64 at) {
  SummedFile& summed = SummedFile::of(file);
  const FileBytes read(static_cast<std::byte*>(bytes), static_cast<std::size_t>(size));
  const int result = summed.readInner(read, at);
  return result == SQLITE_OK ? summed.afterReading(read, at) : result;
}

// The sum goes into SQLite's own memory of the page, so that journals, which keep pages as they
// were in memory, put them back with their sums.
int writeFile(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 at) {
  SummedFile& summed = SummedFile::of(file);
  const FileBytes written(static_cast<std::byte*>(const_cast<void*>(bytes)),
                          static_cast<std::size_t>(size));
  summed.beforeWriting(written, at);
  return summed.writeInner(written, at);
}

int controlFile(sqlite3_file* file, int request, void* argument) {
  SummedFile& summed = SummedFile::of(file);
  switch (request) {
    case SummedFiles::kState:
      return summed.state(*static_cast<SummedFiles::State*>(argument));
    case SummedFiles::kRenew:
      return summed.renew();
    case SummedFiles::kLeave:
      summed.sums = SummedFile::Sums::none;
      return SQLITE_OK;
    default:
      return summed.inner()->pMethods->xFileControl(summed.inner(), request, argument);
  }
}

/// Has SQLite's own file do it.
template <auto method, class... Arguments>
int passOn(sqlite3_file* file, Arguments... arguments) {
  sqlite3_file* inner = SummedFile::of(file).inner();
  return (inner->pMethods->*method)(inner, arguments...);
}

void passBarrierOn(sqlite3_file* file) {
  sqlite3_file* inner = SummedFile::of(file).inner();
  inner->pMethods->xShmBarrier(inner);
}

/// Without the third version's ways to have pages mapped into memory, which would not be read.
constexpr sqlite3_io_methods kMethods{
    .iVersion = 2,
    .xClose = closeFile,
    .xRead = readFile,
    .xWrite = writeFile,
    .xTruncate = passOn<&sqlite3_io_methods::xTruncate>,
    .xSync = passOn<&sqlite3_io_methods::xSync>,
    .xFileSize = passOn<&sqlite3_io_methods::xFileSize>,
    .xLock = passOn<&sqlite3_io_methods::xLock>,
    .xUnlock = passOn<&sqlite3_io_methods::xUnlock>,
    .xCheckReservedLock = passOn<&sqlite3_io_methods::xCheckReservedLock>,
    .xFileControl = controlFile,
    .xSectorSize = passOn<&sqlite3_io_methods::xSectorSize>,
    .xDeviceCharacteristics = passOn<&sqlite3_io_methods::xDeviceCharacteristics>,
    .xShmMap = passOn<&sqlite3_io_methods::xShmMap>,
    .xShmLock = passOn<&sqlite3_io_methods::xShmLock>,
    .xShmBarrier = passBarrierOn,
    .xShmUnmap = passOn<&sqlite3_io_methods::xShmUnmap>,
    .xFetch = nullptr,
    .xUnfetch = nullptr,
};

sqlite3_vfs& systemsOwn() {
  static sqlite3_vfs& own = *sqlite3_vfs_find(nullptr);
  return own;
}

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* flagsGiven) {
  sqlite3_vfs& own = systemsOwn();
  if (!(flags & SQLITE_OPEN_MAIN_DB)) return own.xOpen(&own, name, file, flags, flagsGiven);
  SummedFile* summed = std::construct_at(static_cast<SummedFile*>(file));
  summed->inner()->pMethods = nullptr;
  const int result = own.xOpen(&own, name, summed->inner(), flags, flagsGiven);
  // SQLite closes what has methods, opened or not.
  if (summed->inner()->pMethods) summed->pMethods = &kMethods;
  return result;
}

/// All but opening is the system's own: the copy has what that needs to know of itself.
sqlite3_vfs* registered() {
  static sqlite3_vfs ours = systemsOwn();
  ours.zName = "korvel-sums";
  ours.szOsFile = static_cast<int>(sizeof(SummedFile)) + ours.szOsFile;
  ours.xOpen = openFile;
  sqlite3_vfs_register(&ours, 0);
  return &ours;
}

}  // namespace

const char* SummedFiles::vfs() {
  static const sqlite3_vfs* const ours = registered();
  return ours->zName;
}

}  // namespace korvel::platform
