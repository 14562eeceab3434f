// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/FileError.h"

#include <cerrno>
#include <system_error>

namespace korvel::platform {
namespace {

const char* adviceFor(int code) {
  switch (code) {
    case ENOSPC:
    case EDQUOT:
      return "; make room or choose another place";
    case EACCES:
    case EPERM:
      return "; look at its permissions or choose another place";
    case EROFS:
      return "; choose another place";
    case ENAMETOOLONG:
      return "; choose a shorter name";
    default:
      return "";
  }
}

}  // namespace

FileError::FileError(std::filesystem::path file, const std::string& doing, int code)
    : FileError(std::move(file),
                doing + ": " + std::generic_category().message(code) + adviceFor(code)) {}

}  // namespace korvel::platform
