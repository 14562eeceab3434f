// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/QBMatrixValue.h"

#include <algorithm>
#include <utility>

namespace korvel {
namespace {

/// The short form ends at the first zero, so a text that contains one cannot use it.
bool isShort(std::string_view text, std::size_t capacity) {
  return text.size() <= capacity && text.find('\0') == std::string_view::npos;
}

}  // namespace

static_assert(sizeof(QBMatrixValue) <= 16, "a text grid holds millions of cells");

QBMatrixValue::QBMatrixValue(const QBMatrixValue& other)
    : m_float(other.m_float), m_string(other.m_string) {
  if (other.m_longString) m_longString = std::make_unique<const std::string>(*other.m_longString);
}

QBMatrixValue& QBMatrixValue::operator=(QBMatrixValue other) noexcept {
  m_float = other.m_float;
  m_string = other.m_string;
  m_longString = std::move(other.m_longString);
  return *this;
}

void QBMatrixValue::setString(std::string_view text) {
  if (isShort(text, m_string.size())) {
    m_string.fill('\0');
    std::ranges::copy(text, m_string.begin());
    m_longString.reset();
  } else {
    m_longString = std::make_unique<const std::string>(text);
  }
}

std::string_view QBMatrixValue::getString() const {
  if (m_longString) return *m_longString;
  const auto* end = std::ranges::find(m_string, '\0');
  return {m_string.data(), static_cast<std::size_t>(end - m_string.begin())};
}

}  // namespace korvel
