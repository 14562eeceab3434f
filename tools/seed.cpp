// SPDX-License-Identifier: GPL-3.0-or-later
// korvel-seed FILE: writes the store that a new user starts with. Run by the build.
#include <cstdlib>
#include <iostream>

#include "model/store/KorvelModel.h"
#include "model/store/QBTabMgr.h"
#include "workflow/session/StoreSeeding.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: korvel-seed FILE\n";
    return EXIT_FAILURE;
  }
  try {
    korvel::storeFile(argv[1]).create();
    korvel::QBTabMgr::setStorePath(argv[1]);
    initializeData(korvel::QBTabMgr::db());
    const bool complete =
        korvel::QBTabMgr::db().selectedInstrument() && !korvel::QBTabMgr::db().harmonies().empty();
    korvel::QBTabMgr::clearDb();
    if (complete) return EXIT_SUCCESS;
    std::cerr << argv[1] << ": chord declarations or the instrument's definition are missing\n";
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
  }
  return EXIT_FAILURE;
}
