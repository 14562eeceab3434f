// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/NewFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

#include "platform/files/FileError.h"
#include "platform/files/Files.h"
#include "platform/files/Leftovers.h"

namespace korvel::platform {
namespace {

namespace fs = std::filesystem;

fs::path folderOf(const fs::path& file) {
  return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

fs::path throughLinks(const fs::path& file) {
  std::error_code unresolved;
  const fs::path target = fs::canonical(file, unresolved);
  return unresolved ? file : target;
}

fs::path replaceable(const fs::path& file, Existing existing) {
  fs::path target = throughLinks(file);
  std::error_code unknown;
  if (fs::exists(target, unknown) && !fs::is_regular_file(target, unknown))
    throw FileError(file, phrase("Message", "cannot write: it is not a plain file"));
  if (existing != Existing::replacedByStore && isStore(target))
    throw FileError(file, phrase("Message", "cannot write: it holds songs; choose another file"));
  return target;
}

/// Gives a file its name without replacing what has that name already; false then. File systems
/// that know no links can move it instead.
bool appearAs(const fs::path& temporary, const fs::path& file) {
  if (::link(temporary.c_str(), file.c_str()) == 0) return true;
  if (errno == EEXIST) return false;
  if (::renameat2(AT_FDCWD, temporary.c_str(), AT_FDCWD, file.c_str(), RENAME_NOREPLACE) == 0)
    return true;
  if (errno == EEXIST) return false;
  throw FileError(file, FileError::kCannotWrite, errno);
}

}  // namespace

NewFile::NewFile(const fs::path& file, Existing existing, Readers readers)
    : m_file(file),
      m_target(existing == Existing::kept ? file : replaceable(file, existing)),
      m_temporary(temporaryBeside(m_target)),
      m_existing(existing),
      m_out(m_temporary, file, O_WRONLY | O_CREAT | O_EXCL, FileError::kCannotWrite, readers) {
  ::flock(m_out.number(), LOCK_EX | LOCK_NB);
  sweepLeftovers(folderOf(m_target));
  if (existing == Existing::replaced) m_out.keepModeOf(m_target);
}

NewFile::~NewFile() { ::unlink(m_temporary.c_str()); }

bool NewFile::appear() {
  m_out.flush();
  if (m_existing == Existing::kept) {
    if (!appearAs(m_temporary, m_target)) return false;
  } else if (::rename(m_temporary.c_str(), m_target.c_str()) != 0) {
    throw FileError(m_file, FileError::kCannotWrite, errno);
  }
  const Descriptor folder(folderOf(m_target), m_file, O_RDONLY | O_DIRECTORY,
                          FileError::kCannotWrite);
  folder.flush();
  return true;
}

}  // namespace korvel::platform
