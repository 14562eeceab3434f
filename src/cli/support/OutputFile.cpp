// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/OutputFile.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "cli/support/CliError.h"
#include "platform/files/FileError.h"
#include "platform/files/Files.h"

namespace korvel::cli {
namespace {

namespace fs = std::filesystem;

}  // namespace

OutputFile::OutputFile(std::string name, bool replace)
    : m_name(std::move(name)), m_replace(replace) {}

void OutputFile::check() const {
  if (m_name.empty()) throw CliError("the name of the file to write is empty; name a file");
  std::error_code unknown;
  const fs::path folder = fs::path(m_name).parent_path();
  if (!folder.empty() && !fs::is_directory(folder, unknown))
    throw CliError(m_name + ": there is no such folder; make it first");
  if (fs::is_directory(m_name, unknown)) throw CliError(m_name + ": is a folder; name a file");
  if (!m_replace && fs::exists(fs::symlink_status(m_name, unknown))) refuse();
  if (fs::exists(m_name, unknown) && !fs::is_regular_file(m_name, unknown))
    throw CliError(m_name + ": is not a plain file; name another one");
  if (platform::isStore(m_name)) throw CliError(m_name + ": holds songs; name another file");
}

void OutputFile::requireDifferent(std::vector<std::optional<std::string>> names) {
  std::erase(names, std::nullopt);
  for (auto name = names.begin(); name != names.end(); ++name)
    if (std::any_of(names.begin(), name,
                    [&](const auto& before) { return platform::isSameFile(*before, **name); }))
      throw CliError(**name + ": is named for two formats; name a file for each");
}

void OutputFile::requireOtherThan(const std::string& source) const {
  if (platform::isSameFile(m_name, source))
    throw CliError(m_name + ": is the recording itself; name another file");
}

void OutputFile::write(std::string_view bytes) const {
  writeBy([&](const fs::path& name, platform::Existing existing) {
    platform::NewFile file(name, existing);
    file.write(bytes);
    return file.appear();
  });
}

void OutputFile::writeBy(const Writer& writer) const {
  try {
    if (!writer(m_name, m_replace ? platform::Existing::replaced : platform::Existing::kept))
      refuse();
  } catch (const platform::FileError& error) {
    throw CliError(std::string(error.what()) + kAdvice);
  }
}

void OutputFile::refuse() const {
  throw CliError(m_name + ": there is a file of that name already; --force replaces it");
}

}  // namespace korvel::cli
