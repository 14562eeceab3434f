// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/persistence/Ref.h"
#include "workflow/exchange/PieceImport.h"

namespace korvel {
class QBSong;
}

namespace korvel::cli {

class Command;

// What `import` does with files of other programs.

/// Offers --track, --as-written, --as-played and --six-strings, which fill the choices.
void addPieceFlags(Command& command, PieceChoices& choices);

/// Whether the user asked which tracks there are instead of importing one.
bool listsTracks(const PieceChoices& choices);
void printTracks(const std::string& file);

/// Makes a song of the file, saved. stepped: through the run loop's timer. Throws a UserError that
/// names the file.
platform::Ref<QBSong> importPiece(const std::string& file, const PieceChoices& choices,
                                  bool stepped);

}  // namespace korvel::cli
