// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sqlite/StoreHeader.h"

#include <iterator>
#include <string_view>

namespace korvel::platform {
namespace {

constexpr std::string_view kMagicOfStore("SQLite format 3\0", 16);

}  // namespace

StoreHeader::StoreHeader(std::istream& bytes) {
  if (!bytes.read(m_bytes.data(), std::ssize(m_bytes))) m_bytes.fill('\0');
}

bool StoreHeader::isSqlite() const {
  return std::string_view(m_bytes.data(), kMagicOfStore.size()) == kMagicOfStore;
}

std::uint32_t StoreHeader::number(std::size_t at) const {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i)
    value = value << 8 | static_cast<unsigned char>(m_bytes.at(at + i));
  return value;
}

}  // namespace korvel::platform
