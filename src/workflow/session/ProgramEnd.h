// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

/// Thrown once the user has been told of an error after which the program cannot go on. A front end
/// lets it through to where the program ends, so that everything is put away on the way. No
/// std::exception, lest somebody takes it for one that can be survived.
struct ProgramEnd {
  int status;  ///< To end with.
};

}  // namespace korvel
