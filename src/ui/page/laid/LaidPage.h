// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>
#include <vector>

#include "ui/page/laid/PageInk.h"

namespace korvel::ui {

/// A page of chords as far as it is laid out, from top to bottom: what is drawn, and where the
/// parts of it are that can be pointed at. Coordinates are those of the device, the page's top left
/// corner at the origin.
struct LaidPage {
  /// A chord of a bar. Numbers are indexes in the page.
  struct Chord {
    QRectF place;
    int section;
    int bar;
    int chord;
    bool isDoubtful;
  };
  struct Bar {
    QRectF place;
    int section;
    int bar;
    std::vector<QRectF> words;  ///< For each time that it is played, where there is a line for it.
  };
  struct Grip {
    QRectF place;
    int grip;
    int other = -1;  ///< Among its `others`; -1 for the one of the page.
  };
  /// What is not to be torn apart at the end of a sheet of paper.
  struct Band {
    double top;
    double bottom;
  };

  /// What comes between these belongs to one band.
  void beginBand() { bands.push_back({y, y}); }
  void endBand() { bands.back().bottom = y; }

  PageInk ink;
  double y = 0;  ///< Where what comes next begins, and in the end the height of all.
  std::vector<Chord> chords;
  std::vector<Bar> bars;
  std::vector<Bar> letters;  ///< Sections that are only named.
  std::vector<Grip> grips;
  std::vector<Band> bands;
};

}  // namespace korvel::ui
