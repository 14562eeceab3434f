// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::platform {

/// Who may read a new file: whom the user lets read new files, or nobody else.
enum class Readers { asUsual, ownerOnly };

}  // namespace korvel::platform
