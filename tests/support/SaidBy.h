// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

namespace korvel::test {

/// What an error of a type says that an action throws; empty when it throws none.
template <class Error>
std::string saidBy(const std::function<void()>& action) {
  try {
    action();
  } catch (const Error& error) {
    return error.what();
  }
  return {};
}

}  // namespace korvel::test
