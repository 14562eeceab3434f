// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/UserError.h"

namespace korvel::platform {

UserText textOf(const std::exception& exception) {
  const auto* worded = dynamic_cast<const Worded*>(&exception);
  return worded ? worded->text() : UserText::verbatim(exception.what());
}

}  // namespace korvel::platform
