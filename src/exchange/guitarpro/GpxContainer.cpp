// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/guitarpro/GpxContainer.h"

#include <algorithm>
#include <cstdint>

#include "platform/text/UserError.h"

namespace korvel::exchange::guitarpro {
namespace {

constexpr std::string_view kPacked = "BCFZ";
constexpr std::string_view kPlain = "BCFS";
constexpr std::size_t kMark = 4;
constexpr std::size_t kSector = 0x1000;
constexpr std::size_t kMostUnpacked = std::size_t{32} << 20;

[[noreturn]] void refuseContainer() {
  throw platform::UserError(platform::phrase("Exchange", "its container is damaged"));
}

std::uint32_t numberAt(std::string_view bytes, std::size_t place) {
  if (place > bytes.size() || bytes.size() - place < 4) refuseContainer();
  std::uint32_t number = 0;
  for (unsigned i = 0; i < 4; ++i)
    number |= std::uint32_t{static_cast<unsigned char>(bytes[place + i])} << 8 * i;
  return number;
}

/// Takes bits from the highest of each byte on.
class BitReader {
 public:
  explicit BitReader(std::string_view bytes) : m_bytes(bytes) {}

  bool has(unsigned bits) const { return m_at + bits <= 8 * m_bytes.size(); }
  /// The first one is the highest of the number.
  unsigned take(unsigned bits) {
    unsigned number = 0;
    for (unsigned i = 0; i < bits; ++i) number = number << 1 | bit();
    return number;
  }
  /// The first one is the lowest.
  unsigned takeReversed(unsigned bits) {
    unsigned number = 0;
    for (unsigned i = 0; i < bits; ++i) number |= bit() << i;
    return number;
  }

 private:
  unsigned bit() {
    if (!has(1)) refuseContainer();
    const auto byte = static_cast<unsigned char>(m_bytes[m_at / 8]);
    return byte >> (7 - m_at++ % 8) & 1U;
  }

  std::string_view m_bytes;
  std::size_t m_at = 0;
};

/// Pieces of up to three bytes as they are, and repetitions of what was unpacked before.
class Unpacking {
 public:
  explicit Unpacking(std::string_view packed)
      : m_size(numberAt(packed, 0)), m_bits(packed.substr(kMark)) {
    if (m_size > kMostUnpacked)
      throw platform::UserError(
          platform::phrase("Exchange", "it is larger than any music; nothing was read"));
  }

  std::string unpack() {
    // What is left of the last byte is no piece any more.
    constexpr unsigned kShortestPiece = 3;
    while (m_out.size() < m_size && m_bits.has(kShortestPiece))
      if (m_bits.take(1))
        repeat();
      else
        copy();
    m_out.resize(std::min(m_out.size(), m_size));
    return std::move(m_out);
  }

 private:
  void repeat() {
    const unsigned bits = m_bits.take(4);
    const std::size_t back = m_bits.takeReversed(bits);
    const std::size_t size = m_bits.takeReversed(bits);
    if (back > m_out.size()) refuseContainer();
    m_out.append(m_out.substr(m_out.size() - back, std::min(back, size)));
  }

  void copy() {
    for (unsigned count = m_bits.takeReversed(2); count > 0; --count)
      m_out += static_cast<char>(m_bits.take(8));
  }

  std::size_t m_size;
  BitReader m_bits;
  std::string m_out{};
};

/// A small file system: sectors that are files, each with its name and the numbers of its sectors.
class Sectors {
 public:
  explicit Sectors(std::string_view bytes) : m_bytes(bytes) {}

  std::string file(std::string_view name) const {
    constexpr std::uint32_t kIsFile = 2;
    for (std::size_t at = kSector; at + 4 <= m_bytes.size(); at += kSector) {
      if (numberAt(m_bytes, at) != kIsFile) continue;
      if (nameAt(at) == name) return contentAt(at);
      at = std::max(at, lastSectorOf(at));
    }
    throw platform::UserError(platform::phrase("Exchange", "its container holds no music"));
  }

 private:
  static constexpr std::size_t kName = 4;
  static constexpr std::size_t kNameRoom = 127;
  static constexpr std::size_t kSize = 0x8C;
  static constexpr std::size_t kNumbers = 0x94;
  static constexpr std::size_t kMostSectors = (kSector - kNumbers) / 4;

  std::string_view nameAt(std::size_t at) const {
    const std::string_view field = m_bytes.substr(at).substr(std::min(kName, m_bytes.size() - at));
    return field.substr(0, std::min(field.find('\0'), kNameRoom));
  }

  template <class Each>
  void eachSector(std::size_t at, const Each& each) const {
    for (std::size_t i = 0; i < kMostSectors; ++i) {
      const std::size_t sector = numberAt(m_bytes, at + kNumbers + 4 * i);
      if (sector == 0) return;
      each(sector * kSector);
    }
  }

  std::size_t lastSectorOf(std::size_t at) const {
    std::size_t last = 0;
    eachSector(at, [&](std::size_t sector) { last = sector; });
    return last < m_bytes.size() ? last : 0;
  }

  std::string contentAt(std::size_t at) const {
    const std::size_t size = numberAt(m_bytes, at + kSize);
    std::string content;
    eachSector(at, [&](std::size_t sector) {
      if (sector >= m_bytes.size()) refuseContainer();
      content += m_bytes.substr(sector, kSector);
    });
    if (size > content.size()) refuseContainer();
    content.resize(size);
    return content;
  }

  std::string_view m_bytes;
};

}  // namespace

bool isGpx(std::string_view bytes) {
  return bytes.starts_with(kPacked) || bytes.starts_with(kPlain);
}

std::string fileInGpx(std::string_view bytes, std::string_view name) {
  const bool isPlain = bytes.starts_with(kPlain);
  const std::string unpacked =
      isPlain ? std::string(bytes) : Unpacking(bytes.substr(kMark)).unpack();
  if (!std::string_view(unpacked).starts_with(kPlain)) refuseContainer();
  return Sectors(std::string_view(unpacked).substr(kMark)).file(name);
}

}  // namespace korvel::exchange::guitarpro
