// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

namespace korvel {

/// Texts that come with the application.
class QBTextLoader {
 public:
  /// Reads the resource "index".
  QBTextLoader();

  /// The shared loader, made on first use.
  static QBTextLoader& db();

  /// Path of the text resource of that name; empty when there is none.
  std::string getStorePath(const std::string& name) const;
  /// The file's text; empty when there is no such file, none when it cannot be read.
  std::optional<std::string> loadFromFile(const std::string& name) const;
  const std::optional<std::string>& index() const { return m_index; }

 private:
  std::optional<std::string> m_index;
};

}  // namespace korvel
