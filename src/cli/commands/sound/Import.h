// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `import`: makes a song of each file, saves it and prints it. A file that cannot be imported is
/// reported; the others go on.
void addImport(Command& tool);

}  // namespace korvel::cli
