// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>

namespace korvel::test {

/// A new folder for one test, removed with everything in it afterwards.
class ScratchFolder {
 public:
  ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder();

  const std::filesystem::path& path() const { return m_path; }
  std::string file(const std::string& name) const { return (m_path / name).string(); }

 private:
  std::filesystem::path m_path;
};

/// Whole content of a file; empty when there is none.
std::string readFile(const std::filesystem::path& file);
void writeFile(const std::filesystem::path& file, const std::string& content);

}  // namespace korvel::test
