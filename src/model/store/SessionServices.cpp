// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/store/SessionServices.h"

#include <cstdlib>
#include <iostream>

namespace korvel {
namespace {

class PlainServices final : public SessionServices {
 public:
  void addToLog(std::string_view text) override { std::cerr << text << '\n'; }
  void logError(std::string_view text) override { std::cerr << text << '\n'; }
  void exitWithError(std::string_view context, std::string_view error) override {
    exitWithStatus(context, error, EXIT_FAILURE);
  }
  void exitWithStatus(std::string_view context, std::string_view error, int status) override {
    std::cerr << context << ": " << error << '\n';
    std::exit(status);
  }
};

SessionServices*& installed() {
  static SessionServices* services = nullptr;
  return services;
}

}  // namespace

SessionServices& SessionServices::current() {
  static PlainServices plain;
  return installed() ? *installed() : plain;
}

void SessionServices::install(SessionServices* services) { installed() = services; }

}  // namespace korvel
