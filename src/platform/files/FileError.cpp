// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/FileError.h"

#include <cerrno>
#include <system_error>
#include <utility>

namespace korvel::platform {
namespace {

/// What was to be done, what the system says to it, and what to do.
Phrase phraseFor(int code) {
  switch (code) {
    case ENOSPC:
    case EDQUOT:
      return phrase("Message", "%1: %2; make room or choose another place");
    case EACCES:
    case EPERM:
      return phrase("Message", "%1: %2; look at its permissions or choose another place");
    case EROFS:
      return phrase("Message", "%1: %2; choose another place");
    case ENAMETOOLONG:
      return phrase("Message", "%1: %2; choose a shorter name");
    default:
      return phrase("Message", "%1: %2");
  }
}

}  // namespace

FileError::FileError(std::filesystem::path file, const UserText& problem)
    : UserError(phrase("Message", "%1: %2"), file.string(), problem), m_file(std::move(file)) {}

FileError::FileError(std::filesystem::path file, const UserText& doing, int code)
    : FileError(std::move(file),
                UserText(phraseFor(code), doing, std::generic_category().message(code))) {}

}  // namespace korvel::platform
