// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/Descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/files/FileError.h"

namespace korvel::platform {

Descriptor::Descriptor(const std::filesystem::path& opened, std::filesystem::path named, int flags,
                       const UserText& doing, Readers readers)
    : m_named(std::move(named)),
      m_fd(::open(opened.c_str(), flags | O_CLOEXEC, readers == Readers::ownerOnly ? 0600 : 0666)) {
  if (m_fd < 0) throw FileError(m_named, doing, errno);
}

Descriptor::~Descriptor() { ::close(m_fd); }

std::size_t Descriptor::read(char* buffer, std::size_t size) const {
  ssize_t count = -1;
  do {
    count = ::read(m_fd, buffer, size);
  } while (count < 0 && errno == EINTR);
  if (count < 0) throw FileError(m_named, FileError::kCannotRead, errno);
  return static_cast<std::size_t>(count);
}

void Descriptor::write(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t written = ::write(m_fd, bytes.data(), bytes.size());
    if (written >= 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    if (written < 0 && errno != EINTR) throw FileError(m_named, FileError::kCannotWrite, errno);
  }
}

void Descriptor::flush() const {
  if (::fsync(m_fd) != 0) throw FileError(m_named, FileError::kCannotWrite, errno);
}

void Descriptor::keepModeOf(const std::filesystem::path& old) const {
  struct stat status {};
  if (::stat(old.c_str(), &status) == 0) ::fchmod(m_fd, status.st_mode & 07777);
}

void Descriptor::refuseIrregular() const {
  struct stat status {};
  if (::fstat(m_fd, &status) != 0) throw FileError(m_named, FileError::kCannotRead, errno);
  if (S_ISDIR(status.st_mode))
    throw FileError(m_named, phrase("Message", "cannot read: it is a folder"));
  if (!S_ISREG(status.st_mode))
    throw FileError(m_named, phrase("Message", "cannot read: it is not a plain file"));
}

}  // namespace korvel::platform
