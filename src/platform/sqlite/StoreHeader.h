// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <istream>

namespace korvel::platform {

/// The beginning of a SQLite file, which says whose it is. Looked at without SQLite, which might
/// already change a file when it opens it.
class StoreHeader {
 public:
  /// Of a file that says nothing.
  StoreHeader() = default;
  /// Reads it; a stream that is shorter leaves a header that says nothing.
  explicit StoreHeader(std::istream& bytes);

  bool isSqlite() const;
  std::int32_t applicationId() const { return static_cast<std::int32_t>(number(68)); }
  std::int32_t userVersion() const { return static_cast<std::int32_t>(number(60)); }
  /// Differs from one session of changes to the next.
  std::uint32_t changeCounter() const { return number(24); }
  std::uint32_t pages() const { return number(28); }

 private:
  /// Big-endian.
  std::uint32_t number(std::size_t at) const;

  std::array<char, 100> m_bytes{};
};

}  // namespace korvel::platform
