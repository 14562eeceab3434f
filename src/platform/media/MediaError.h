// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/files/FileError.h"

namespace korvel::platform {

/// A media file that cannot be opened or decoded.
class MediaError : public FileError {
 public:
  using FileError::FileError;
};

}  // namespace korvel::platform
