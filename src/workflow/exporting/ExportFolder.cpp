// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/ExportFolder.h"

#include <system_error>

#include "model/store/QBSettings.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/FileError.h"
#include "platform/files/Files.h"
#include "workflow/exporting/SongFiles.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

/// Where the last export went, else the working directory, if the user has chosen one.
std::filesystem::path folderOfExports() {
  const SavePanel* panel = QBSession::session().views().savePanel;
  if (const std::filesystem::path last = panel ? panel->exportFolder() : ""; !last.empty())
    return last;
  const QBSettings* settings = QBTabMgr::db().selectedSettings();
  const std::filesystem::path work = settings ? settings->workDir() : "";
  return work.is_absolute() ? work : ".";
}

std::filesystem::path freeNameIn(const std::filesystem::path& folder, const std::string& name) {
  std::filesystem::path free = folder / name;
  for (int number = 2; platform::isThere(free); ++number)
    free = folder / (name + ' ' + std::to_string(number));
  return free;
}

}  // namespace

ExportFolder::ExportFolder(const std::string& title)
    : m_folder(freeNameIn(folderOfExports(), fileNameOf(title))) {
  platform::makeFolders(m_folder);
}

ExportFolder::~ExportFolder() {
  if (m_kept) return;
  std::error_code ignored;  // what cannot be removed was not ours
  for (const auto& file : m_files) std::filesystem::remove(file, ignored);
  std::filesystem::remove(m_folder, ignored);
}

void ExportFolder::write(const std::string& title, std::string_view text) {
  const std::filesystem::path file = m_folder / (fileNameOf(title) + ".txt");
  if (!platform::createAtomically(file, text))
    throw platform::FileError(file, platform::phrase("Message", "could not be written whole"));
  m_files.push_back(file);
}

void ExportFolder::keep() {
  m_kept = true;
  for (const auto& file : m_files)
    QBSession::session().addToLog(platform::UserText::verbatim(file.string()));
}

}  // namespace korvel
