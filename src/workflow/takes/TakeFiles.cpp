// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/takes/TakeFiles.h"

#include <system_error>

#include "platform/files/Files.h"
#include "platform/text/LocalTime.h"
#include "recording/LiveTake.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

fs::path folderOfTakes() { return platform::userDataFolder("korvel") / "takes"; }

}  // namespace

fs::path freeTakeFile() {
  return LiveTake::freeFile(folderOfTakes(), platform::localTime("%Y-%m-%d %H-%M-%S"));
}

std::vector<fs::path> takeFilesLeft() { return LiveTake::leftIn(folderOfTakes()); }

bool isTakeFile(const fs::path& file) {
  std::error_code unknown;
  const fs::path folder = fs::weakly_canonical(folderOfTakes(), unknown);
  return fs::weakly_canonical(file, unknown).parent_path() == folder;
}

}  // namespace korvel
