// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/UserError.h"

#include <new>

namespace korvel::platform {

UserText textOf(const std::exception& exception) {
  const auto* worded = dynamic_cast<const Worded*>(&exception);
  if (dynamic_cast<const std::bad_alloc*>(&exception))
    return phrase("Message", "there is not enough memory left for it; close other programs");
  return worded ? worded->text() : UserText::verbatim(exception.what());
}

}  // namespace korvel::platform
