// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/store/SessionServices.h"

#include <iostream>

namespace korvel {
namespace {

class PlainServices final : public SessionServices {
 public:
  void addToLog(const platform::UserText& text) override { std::cerr << text.english() << '\n'; }
  void logError(const platform::UserText& text) override { addToLog(text); }
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
