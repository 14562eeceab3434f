// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>

namespace korvel::platform {

/// A text that is kept for later. A long one is compressed meanwhile: tablature, which repeats
/// itself, takes a tenth of its length.
class PackedText {
 public:
  explicit PackedText(const std::string& text);

  std::string text() const;
  /// Memory that the packed text takes.
  std::size_t bytes() const { return m_kept.size(); }

 private:
  std::string m_kept;
  std::size_t m_length = 0;
  bool m_packed = false;
};

}  // namespace korvel::platform
