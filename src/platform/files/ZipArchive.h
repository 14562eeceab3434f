// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvel::platform {

/// What an archive may ask for: one of a few bytes can hold gigabytes.
struct ZipLimits {
  std::size_t entries = 1000;
  std::size_t bytesOfEntry = std::size_t{64} << 20;
  std::size_t bytesInAll = std::size_t{128} << 20;  ///< Of all that is read, in all.
  /// How many times as large as it is packed an entry may be. One below 1 MiB may be any.
  std::size_t ratio = 250;
};

/// A zip archive in memory, from anybody: files that are stored or deflated, not encrypted. Throws
/// UserErrors that say what is wrong with it.
class ZipArchive {
 public:
  using Limits = ZipLimits;

  /// The bytes must outlive this.
  explicit ZipArchive(std::string_view bytes, const Limits& limits = {});
  ZipArchive(const ZipArchive&) = delete;
  ZipArchive& operator=(const ZipArchive&) = delete;
  ~ZipArchive();

  /// Of the entries, with the folders that they are in, such as "META-INF/container.xml".
  const std::vector<std::string>& names() const { return m_names; }
  /// All bytes of an entry; none where there is no entry of that name.
  std::optional<std::string> read(std::string_view name);

 private:
  struct Archive;
  std::string read(std::size_t index);

  Limits m_limits;
  std::unique_ptr<Archive> m_archive;
  std::vector<std::string> m_names;
  std::size_t m_read = 0;  ///< Bytes that were read so far.
};

/// A file to be put into an archive.
struct ZipEntry {
  std::string name;
  std::string bytes;
  /// As it is, not deflated, which some formats ask of their first entry.
  bool isStored = false;
};

/// An archive of the entries in their order. It carries no times, so that the same entries make the
/// same bytes. Throws std::runtime_error when memory ends.
std::string zipped(std::span<const ZipEntry> entries);

}  // namespace korvel::platform
