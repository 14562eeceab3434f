// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

namespace korvel::ui {

// In the colour of the application's button texts, also when that changes.
QIcon playIcon();
QIcon stopIcon();
/// An arrow round, struck through.
QIcon resetLoopIcon();
QIcon metronomeIcon();
/// Numbers that are counted.
QIcon countInIcon();
/// Strokes at equal distances.
QIcon strictTempoIcon();
/// A loudspeaker.
QIcon volumeIcon();
/// Knobs on their ways.
QIcon soundIcon();
/// Two arrows to the right: there is more than fits.
QIcon moreIcon();

}  // namespace korvel::ui
