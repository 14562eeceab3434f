// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/book/QBTextLoader.h"

#include "platform/files/FileError.h"
#include "platform/files/Files.h"
#include "platform/files/Resources.h"

namespace korvel {

QBTextLoader::QBTextLoader() : m_index(loadFromFile("index")) {}

QBTextLoader& QBTextLoader::db() {
  static QBTextLoader loader;
  return loader;
}

std::string QBTextLoader::getStorePath(const std::string& name) const {
  const auto path = platform::Resources::ofProgram().locate(name, "txt");
  return path ? path->string() : std::string();
}

std::optional<std::string> QBTextLoader::loadFromFile(const std::string& name) const {
  const std::string path = getStorePath(name);
  if (path.empty()) return std::string();
  try {
    return platform::readWholeFile(path);
  } catch (const platform::FileError&) {
    return std::nullopt;
  }
}

}  // namespace korvel
