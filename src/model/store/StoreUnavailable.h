// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/text/UserError.h"

namespace korvel {

/// The store could be neither opened nor made, without which nothing can be done. The text is that
/// of what stood in the way.
class StoreUnavailable final : public platform::UserError {
 public:
  /// context: what was to be done, as the report of a fatal error names it.
  StoreUnavailable(const platform::Phrase& context, const std::exception& reason)
      : UserError(platform::textOf(reason)), m_context(context) {}

  const platform::Phrase& context() const { return m_context; }

 private:
  platform::Phrase m_context;
};

}  // namespace korvel
