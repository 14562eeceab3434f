// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/QBMatrixValue.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvel {
namespace {

using Room = std::array<char, 4>;

/// No byte of UTF-8: as the first of a cell it says that the other three number a long text.
constexpr char kLongText = '\xFF';
constexpr std::size_t kLongTexts = std::size_t{1} << 24;

/// The short form ends at the first zero, so a text that contains one does not fit.
bool fits(std::string_view text) {
  return text.size() <= Room().size() && text.find('\0') == std::string_view::npos &&
         !text.starts_with(kLongText);
}

/// The texts that do not fit into a cell, each once.
class LongTexts {
 public:
  Room add(std::string_view text) {
    if (m_texts.size() == kLongTexts) throw std::length_error("too many long texts in matrices");
    const auto [entry, isNew] = m_index.emplace(text, m_texts.size());
    if (isNew) m_texts.push_back(entry->first);
    const std::size_t number = entry->second;
    return {kLongText, static_cast<char>(number), static_cast<char>(number >> 8),
            static_cast<char>(number >> 16)};
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

void QBMatrixValue::setString(std::string_view text) {
  m_string.fill('\0');
  if (fits(text))
    std::ranges::copy(text, m_string.begin());
  else
    m_string = longTexts().add(text);
}

std::string_view QBMatrixValue::getString() const {
  if (m_string.front() == kLongText) return longTexts().at(m_string);
  const auto* end = std::ranges::find(m_string, '\0');
  return {m_string.data(), static_cast<std::size_t>(end - m_string.begin())};
}

}  // namespace korvel
