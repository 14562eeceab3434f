// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {
class QBSong;
}

namespace korvel::cli {

/// "ALBUM/TITLE".
std::string fullTitle(const QBSong& song);

/// The song of that title, or of that ALBUM/TITLE. Throws CliError, which lists the candidates,
/// when there is none or more than one.
QBSong& chooseSong(const std::string& name);

}  // namespace korvel::cli
