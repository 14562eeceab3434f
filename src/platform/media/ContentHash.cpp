// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/ContentHash.h"

extern "C" {
#include <libavutil/mem.h>
#include <libavutil/murmur3.h>
}

#include <array>
#include <new>

namespace korvel::platform {
namespace {

constexpr std::size_t kPiece = std::size_t{1} << 21;
constexpr std::size_t kDigestBytes = 16;

}  // namespace

void ContentHash::Freed::operator()(AVMurMur3* hash) const { av_free(hash); }

ContentHash::ContentHash(const std::filesystem::path& file)
    : m_file(file, std::ios::binary), m_piece(kPiece), m_hash(av_murmur3_alloc()) {
  if (!m_hash) throw std::bad_alloc();
  av_murmur3_init(m_hash.get());
}

ContentHash::~ContentHash() = default;

bool ContentHash::step() {
  if (!m_file) return false;
  m_file.read(m_piece.data(), static_cast<std::streamsize>(m_piece.size()));
  const auto read = static_cast<std::size_t>(m_file.gcount());
  av_murmur3_update(m_hash.get(), reinterpret_cast<const std::uint8_t*>(m_piece.data()), read);
  m_size += m_file.gcount();
  return !m_file.fail();
}

std::string ContentHash::digits() {
  if (m_size == 0) return "";
  std::array<std::uint8_t, kDigestBytes> digest{};
  av_murmur3_final(m_hash.get(), digest.data());
  constexpr const char* kDigits = "0123456789abcdef";
  std::string text;
  for (const std::uint8_t byte : digest) {
    text += kDigits[byte >> 4];
    text += kDigits[byte & 0xF];
  }
  return text;
}

}  // namespace korvel::platform
