// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QImage>
#include <span>
#include <vector>

#include "analysis/picture/SoundPicture.h"

namespace korvel::ui {

/// Paints columns of a recording's spectrogram into an image that is laid over the ground of a
/// view: the louder, the more of the ink.
class SpectrumImage {
 public:
  /// loudShade: what gets the most of the ink.
  SpectrumImage(const QColor& ink, int loudShade);

  /// Of each column of the image, the place among the columns that are there, between two of them
  /// as well; and of each row the bin, likewise, which may lie outside of the scale.
  QImage painted(const SoundPicture::Columns& columns, std::span<const double> places,
                 std::span<const double> bins) const;

 private:
  void gather(const SoundPicture::Columns& columns, std::span<const double> places,
              std::size_t firstBin, std::vector<std::uint8_t>& rows, std::size_t count) const;

  std::vector<QRgb> m_inks;  ///< Of each shade, premultiplied.
};

}  // namespace korvel::ui
