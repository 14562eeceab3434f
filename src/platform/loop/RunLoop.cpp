// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/loop/RunLoop.h"

#include "platform/loop/PlainRunLoop.h"

namespace korvel::platform {
namespace {

RunLoop*& installed() {
  static RunLoop* loop = nullptr;
  return loop;
}

}  // namespace

RunLoop& RunLoop::main() { return installed() ? *installed() : PlainRunLoop::ofProcess(); }

void RunLoop::install(RunLoop* loop) { installed() = loop; }

}  // namespace korvel::platform
