// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <utility>
#include <vector>

namespace korvel::rhythm {

/// Numbers one after the other as bytes. Whole ones take as few as they need.
class ByteWriter {
 public:
  void whole(std::uint64_t value) {
    for (; value >= kMore; value >>= kBits) add(static_cast<std::uint8_t>(value | kMore));
    add(static_cast<std::uint8_t>(value));
  }
  void withSign(std::int64_t value) {
    whole(static_cast<std::uint64_t>(value) << 1 ^ static_cast<std::uint64_t>(value >> 63));
  }
  void flag(bool value) { whole(value ? 1 : 0); }
  void real(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    for (int i = 0; i < 64; i += 8) add(static_cast<std::uint8_t>(bits >> i));
  }
  /// With how many they are.
  void block(std::span<const std::byte> bytes) {
    whole(bytes.size());
    m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
  }
  std::vector<std::byte> take() { return std::move(m_bytes); }

  static constexpr std::uint64_t kMore = 0x80;
  static constexpr int kBits = 7;

 private:
  void add(std::uint8_t byte) { m_bytes.push_back(std::byte{byte}); }

  std::vector<std::byte> m_bytes;
};

/// The bytes were not written by a ByteWriter in that order.
struct OddBytes final : std::runtime_error {
  OddBytes() : std::runtime_error("bytes of a recording are damaged") {}
};

/// Reads what a ByteWriter wrote; throws OddBytes at its end, for what is out of range, and for
/// what a ByteWriter writes otherwise.
class ByteReader {
 public:
  explicit ByteReader(std::span<const std::byte> bytes) : m_bytes(bytes) {}

  std::uint64_t whole() {
    std::uint64_t value = 0;
    for (int shift = 0; shift < 63; shift += ByteWriter::kBits) {
      const auto byte = std::to_integer<std::uint64_t>(next());
      value |= (byte & (ByteWriter::kMore - 1)) << shift;
      if (byte < ByteWriter::kMore) {
        if (byte == 0 && shift > 0) break;
        return value;
      }
    }
    throw OddBytes();
  }
  std::uint64_t atMost(std::uint64_t most) {
    const std::uint64_t value = whole();
    if (value > most) throw OddBytes();
    return value;
  }
  bool flag() { return atMost(1) == 1; }
  std::int64_t withSign() {
    const std::uint64_t value = whole();
    return static_cast<std::int64_t>(value >> 1) ^ -static_cast<std::int64_t>(value & 1);
  }
  int within(int from, int to) {
    const std::int64_t value = withSign();
    if (value < from || value > to) throw OddBytes();
    return static_cast<int>(value);
  }
  /// How many things follow, of which each takes at least so many bytes: a few bytes promise no
  /// more than they have.
  std::size_t count(std::size_t bytes) {
    const std::uint64_t value = whole();
    if (value > m_bytes.size() / bytes) throw OddBytes();
    return static_cast<std::size_t>(value);
  }
  double real() {
    std::uint64_t bits = 0;
    for (int i = 0; i < 64; i += 8) bits |= std::to_integer<std::uint64_t>(next()) << i;
    return std::bit_cast<double>(bits);
  }
  std::span<const std::byte> block() {
    const std::size_t size = count(1);
    const std::span<const std::byte> bytes = m_bytes.first(size);
    m_bytes = m_bytes.subspan(bytes.size());
    return bytes;
  }
  bool isAtEnd() const { return m_bytes.empty(); }

 private:
  std::byte next() {
    if (m_bytes.empty()) throw OddBytes();
    const std::byte first = m_bytes.front();
    m_bytes = m_bytes.subspan(1);
    return first;
  }

  std::span<const std::byte> m_bytes;
};

}  // namespace korvel::rhythm
