// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/store/ScratchFolder.h"

#include <stdlib.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace korvel::test {

ScratchFolder::ScratchFolder() {
  // mkdtemp puts letters of its own in the place of these.
  std::string pattern = (std::filesystem::temp_directory_path() / "korvel-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("cannot make a scratch folder");
  m_path = pattern;
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(m_path, ignored);
}

std::string readFile(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void writeFile(const std::filesystem::path& file, const std::string& content) {
  std::ofstream out(file, std::ios::binary);
  out.write(content.data(), static_cast<std::streamsize>(content.size()));
}

}  // namespace korvel::test
