// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSizeF>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

class QPaintDevice;
class QPainter;

namespace korvel::ui {

/// Something laid out for sheets of one width. Lengths are those of the device that it was laid out
/// for, which outlives it.
class PaperSheets {
 public:
  /// What goes on a sheet: what lies between two heights.
  struct Sheet {
    double top;
    double bottom;
  };

  virtual ~PaperSheets() = default;

  /// Cut where it may be torn into sheets of at most this height, unless what belongs together is
  /// higher. At least one.
  virtual std::vector<Sheet> cut(double height) const = 0;
  /// Draws a sheet in black, its top left corner at the painter's origin.
  virtual void draw(QPainter& painter, const Sheet& sheet) const = 0;
};

/// Something to be put on paper: on a printer's, or into a file.
struct PaperWork {
  QString title;
  /// sheet: the room on one; the device says how large the points of letters are.
  std::function<std::unique_ptr<PaperSheets>(const QPaintDevice& device, QSizeF sheet)> layOut;
};

}  // namespace korvel::ui
