// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::test {

/// How often this thread has asked for memory by `new` so far; 0 for good where a sanitizer does
/// the counting.
int allocations();

}  // namespace korvel::test
