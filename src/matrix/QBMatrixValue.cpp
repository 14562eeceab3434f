// SPDX-License-Identifier: GPL-3.0-or-later
#include "matrix/QBMatrixValue.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvel {
namespace {

using Room = std::array<char, 4>;

constexpr std::size_t kLongTexts = std::size_t{1} << 24;

/// The texts that do not fit into a cell, each once.
class LongTexts {
 public:
  std::size_t add(std::string_view text) {
    if (m_texts.size() == kLongTexts) throw std::length_error("too many long texts in matrices");
    const auto [entry, isNew] = m_index.emplace(text, m_texts.size());
    if (isNew) m_texts.push_back(entry->first);
    return entry->second;
  }
  std::string_view at(const Room& room) const {
    const auto byte = [&room](std::size_t i) {
      return std::size_t{static_cast<unsigned char>(room[i])};
    };
    return m_texts[byte(1) | byte(2) << 8 | byte(3) << 16];
  }

 private:
  std::map<std::string, std::size_t> m_index;
  std::vector<std::string_view> m_texts;
};

LongTexts& longTexts() {
  static LongTexts texts;
  return texts;
}

}  // namespace

static_assert(sizeof(QBMatrixValue) == 8, "a text grid holds millions of cells");

// The short form ends at the first zero, so a text that contains one does not fit.
bool QBMatrixValue::fits(std::string_view text) {
  return text.size() <= Room().size() && !text.starts_with(kLongText) &&
         std::ranges::none_of(text, [](char c) { return c == '\0'; });
}

void QBMatrixValue::setString(std::string_view text) {
  m_string.fill('\0');
  if (fits(text)) {
    text.copy(m_string.data(), m_string.size());
    return;
  }
  const std::size_t number = longTexts().add(text);
  m_string = {kLongText, static_cast<char>(number), static_cast<char>(number >> 8),
              static_cast<char>(number >> 16)};
}

std::string_view QBMatrixValue::longText() const { return longTexts().at(m_string); }

}  // namespace korvel
