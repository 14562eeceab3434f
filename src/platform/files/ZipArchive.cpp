// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/ZipArchive.h"

#include <zip.h>

#include <algorithm>
#include <stdexcept>

#include "platform/text/UserError.h"

namespace korvel::platform {
namespace {

struct FreeSource {
  void operator()(zip_source_t* source) const { zip_source_free(source); }
};
struct CloseFile {
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};
/// Gives up what was not closed by hand.
struct DiscardArchive {
  void operator()(zip_t* archive) const { zip_discard(archive); }
};
using ZipSource = std::unique_ptr<zip_source_t, FreeSource>;
using OpenArchive = std::unique_ptr<zip_t, DiscardArchive>;

constexpr Phrase kDamagedArchive = phrase("Files", "it is no zip archive, or a damaged one");
constexpr Phrase kTooMuch = phrase("Files", "its archive holds more than it may");

/// Entries of less than this may be packed as tightly as they are.
constexpr std::size_t kHarmless = std::size_t{1} << 20;

/// The archive owns the source once it is open.
OpenArchive opened(ZipSource source, int flags) {
  OpenArchive archive(zip_open_from_source(source.get(), flags, nullptr));
  if (archive) static_cast<void>(source.release());
  return archive;
}

/// What the directory says of an entry; refuses those that are not read.
zip_stat_t statOf(zip_t* archive, std::size_t index) {
  constexpr zip_uint64_t kNeeded = ZIP_STAT_NAME | ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE |
                                   ZIP_STAT_COMP_METHOD | ZIP_STAT_ENCRYPTION_METHOD;
  zip_stat_t stat;
  if (zip_stat_index(archive, index, 0, &stat) != 0 || (stat.valid & kNeeded) != kNeeded)
    throw UserError(kDamagedArchive);
  if (stat.encryption_method != ZIP_EM_NONE)
    throw UserError(phrase("Files", "its archive is encrypted"));
  if (stat.comp_method != ZIP_CM_STORE && stat.comp_method != ZIP_CM_DEFLATE)
    throw UserError(phrase("Files", "its archive is packed in a way that is not read"));
  return stat;
}

/// Throws for an error of the library, which has no other reason left than memory.
void requireZip(bool isDone) {
  if (!isDone) throw std::runtime_error("an archive cannot be written");
}

void addEntry(zip_t* archive, const ZipEntry& entry) {
  ZipSource source(zip_source_buffer(archive, entry.bytes.data(), entry.bytes.size(), 0));
  requireZip(source != nullptr);
  const zip_int64_t index =
      zip_file_add(archive, entry.name.c_str(), source.get(), ZIP_FL_ENC_UTF_8);
  requireZip(index >= 0);
  static_cast<void>(source.release());
  const auto at = static_cast<zip_uint64_t>(index);
  const zip_int32_t method = entry.isStored ? ZIP_CM_STORE : ZIP_CM_DEFLATE;
  requireZip(zip_set_file_compression(archive, at, method, 0) == 0);
  constexpr zip_uint16_t kFirstDay = 1 << 5 | 1;  // 1 January 1980
  requireZip(zip_file_set_dostime(archive, at, 0, kFirstDay, 0) == 0);
}

std::string bytesOf(zip_source_t* source) {
  zip_stat_t stat;
  requireZip(zip_source_stat(source, &stat) == 0 && zip_source_open(source) == 0);
  std::string bytes(stat.size, '\0');
  const zip_int64_t count = zip_source_read(source, bytes.data(), bytes.size());
  zip_source_close(source);
  requireZip(count >= 0 && static_cast<std::size_t>(count) == bytes.size());
  return bytes;
}

}  // namespace

struct ZipArchive::Archive {
  OpenArchive open;
};

ZipArchive::ZipArchive(std::string_view bytes, const Limits& limits)
    : m_limits(limits), m_archive(std::make_unique<Archive>()) {
  ZipSource source(zip_source_buffer_create(bytes.data(), bytes.size(), 0, nullptr));
  if (!source) throw std::bad_alloc();
  m_archive->open = opened(std::move(source), ZIP_RDONLY);
  if (!m_archive->open) throw UserError(kDamagedArchive);
  const zip_int64_t count = zip_get_num_entries(m_archive->open.get(), 0);
  if (count <= 0) throw UserError(kDamagedArchive);
  if (static_cast<std::size_t>(count) > m_limits.entries) throw UserError(kTooMuch);
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
    const char* name = zip_get_name(m_archive->open.get(), i, 0);
    m_names.emplace_back(name ? name : "");
  }
}

ZipArchive::~ZipArchive() = default;

std::optional<std::string> ZipArchive::read(std::string_view name) {
  const auto found = std::ranges::find(m_names, name);
  if (found == m_names.end()) return std::nullopt;
  return read(static_cast<std::size_t>(found - m_names.begin()));
}

std::string ZipArchive::read(std::size_t index) {
  const zip_stat_t stat = statOf(m_archive->open.get(), index);
  const bool isBomb = stat.size > kHarmless && stat.size / m_limits.ratio > stat.comp_size;
  if (stat.size > m_limits.bytesOfEntry || stat.size > m_limits.bytesInAll - m_read || isBomb)
    throw UserError(kTooMuch);
  const std::unique_ptr<zip_file_t, CloseFile> file(
      zip_fopen_index(m_archive->open.get(), index, 0));
  if (!file) throw UserError(kDamagedArchive);
  // One byte more than the directory says, so that its end is met, where sums are checked.
  std::string bytes(static_cast<std::size_t>(stat.size) + 1, '\0');
  std::size_t size = 0;
  zip_int64_t count = 0;
  while (size < bytes.size() &&
         (count = zip_fread(file.get(), bytes.data() + size, bytes.size() - size)) > 0)
    size += static_cast<std::size_t>(count);
  if (count < 0 || size != stat.size) throw UserError(kDamagedArchive);
  bytes.resize(size);
  m_read += size;
  return bytes;
}

std::string zipped(std::span<const ZipEntry> entries) {
  ZipSource target(zip_source_buffer_create(nullptr, 0, 0, nullptr));
  requireZip(target != nullptr);
  zip_source_keep(target.get());  // once for the archive, which frees it, and once to read it
  OpenArchive archive = opened(ZipSource(target.get()), ZIP_CREATE | ZIP_TRUNCATE);
  requireZip(archive != nullptr);
  for (const ZipEntry& entry : entries) addEntry(archive.get(), entry);
  requireZip(zip_close(archive.get()) == 0);
  static_cast<void>(archive.release());
  return bytesOf(target.get());
}

}  // namespace korvel::platform
