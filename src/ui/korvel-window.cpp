// SPDX-License-Identifier: GPL-3.0-or-later
#include <csignal>

#include "ui/window/Application.h"

int main(int argc, char** argv) {
  // A file that reaches its size limit is to be an error like a full disk, not the end.
  std::signal(SIGXFSZ, SIG_IGN);
  korvel::ui::Application application(argc, argv);
  return application.run(application.arguments().mid(1));
}
