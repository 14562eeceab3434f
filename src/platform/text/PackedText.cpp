// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/PackedText.h"

#include <zlib.h>

#include <stdexcept>

namespace korvel::platform {
namespace {

/// Names and titles are not worth it.
constexpr std::size_t kLong = 1024;

const Bytef* bytesOf(const std::string& text) {
  return reinterpret_cast<const Bytef*>(text.data());
}

}  // namespace

/// What cannot be packed is kept as it is.
PackedText::PackedText(const std::string& text) : m_length(text.size()) {
  if (m_length >= kLong) {
    uLongf packed = compressBound(m_length);
    m_kept.resize(packed);
    m_packed = compress2(reinterpret_cast<Bytef*>(m_kept.data()), &packed, bytesOf(text), m_length,
                         Z_BEST_SPEED) == Z_OK;
    m_kept.resize(packed);
    m_kept.shrink_to_fit();
  }
  if (!m_packed) m_kept = text;
}

std::string PackedText::text() const {
  if (!m_packed) return m_kept;
  std::string text(m_length, '\0');
  uLongf length = m_length;
  if (uncompress(reinterpret_cast<Bytef*>(text.data()), &length, bytesOf(m_kept), m_kept.size()) !=
      Z_OK)
    throw std::logic_error("a packed text cannot be unpacked");
  return text;
}

}  // namespace korvel::platform
