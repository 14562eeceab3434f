// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sqlite/StoreJournal.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace korvel::platform {
namespace {

constexpr std::string_view kMagicOfJournal("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8);
constexpr std::size_t kHeaderSize = 28;
/// Stands for "as many as there are".
constexpr std::uint32_t kAllPages = 0xffffffff;
/// A page lies between its number and its checksum.
constexpr std::int64_t kNumberSize = 4;
constexpr std::int64_t kAroundPage = 8;
constexpr std::int64_t kLargestPage = 65536;

std::uint32_t numberAt(std::string_view bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (const char byte : bytes.substr(at, 4)) value = value << 8 | static_cast<unsigned char>(byte);
  return value;
}

}  // namespace

struct StoreJournal::Segment {
  std::int64_t firstPage;  ///< Where it stands.
  std::int64_t pages;
  std::int64_t pageSize;

  std::int64_t end() const { return firstPage + pages * (pageSize + kAroundPage); }
};

std::string StoreJournal::realName(const std::string& store) {
  std::error_code unknown;
  if (!std::filesystem::is_symlink(store, unknown)) return store;
  const std::filesystem::path real = std::filesystem::canonical(store, unknown);
  return unknown ? store : real.string();
}

StoreJournal::StoreJournal(const std::string& store) {
  std::ifstream file(nameFor(store), std::ios::binary | std::ios::ate);
  if (!file) return;
  m_size = file.tellg();
  for (std::int64_t at = 0; at >= 0 && at < m_size && !m_before;) at = readSegment(file, at);
}

/// Answers where the next one begins, or a negative number when there is none.
std::int64_t StoreJournal::readSegment(std::istream& file, std::int64_t at) {
  std::array<char, kHeaderSize> bytes;
  file.seekg(at);
  if (!file.read(bytes.data(), bytes.size())) return -1;
  const std::string_view header(bytes.data(), bytes.size());
  if (!header.starts_with(kMagicOfJournal)) return -1;
  if (at == 0) {
    m_pagesBefore = numberAt(header, 16);
    m_sector = numberAt(header, 20);
  }
  const std::int64_t pageSize = numberAt(header, 24);
  if (m_sector < 32 || m_sector > kLargestPage || pageSize < 512 || pageSize > kLargestPage)
    return -1;
  const std::int64_t there = (m_size - at - m_sector) / (pageSize + kAroundPage);
  const std::uint32_t counted = numberAt(header, 8);
  // Without pages the store is still cut to the size that it had.
  m_isHot = true;
  const std::int64_t pages = counted == kAllPages ? there : std::min<std::int64_t>(counted, there);
  if (pages <= 0) return -1;
  const Segment segment{at + m_sector, pages, pageSize};
  readPages(file, segment);
  return (segment.end() + m_sector - 1) / m_sector * m_sector;
}

void StoreJournal::readPages(std::istream& file, const Segment& segment) {
  for (std::int64_t at = segment.firstPage; at < segment.end();
       at += segment.pageSize + kAroundPage) {
    std::array<char, kNumberSize> number;
    file.seekg(at);
    if (!file.read(number.data(), number.size())) return;
    if (numberAt({number.data(), number.size()}, 0) != 1) continue;
    m_before.emplace(file);
    return;
  }
}

bool StoreJournal::isOf(const StoreHeader& store) const {
  if (!store.isSqlite()) return m_before && m_before->isSqlite();
  if (!m_before) return store.pages() == m_pagesBefore;
  const std::uint32_t changes = store.changeCounter() - m_before->changeCounter();
  return changes <= 1;
}

}  // namespace korvel::platform
