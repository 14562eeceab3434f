// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::platform {

/// In millimetres, upright.
struct PaperSize {
  double width;
  double height;
};

/// The paper that is used where the user lives, by the category LC_PAPER of the locale that the
/// program has set; A4 where it has set none.
PaperSize localPaper();

}  // namespace korvel::platform
