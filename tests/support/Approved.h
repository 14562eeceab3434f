// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel::test {

/// Compares with an approved text of `data/`, and leaves the new one in the working folder as
/// "received-" and its name when they differ.
void expectApproved(const std::string& text, const std::string& name);

}  // namespace korvel::test
