// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBSong;

/// How far the A of a song's recording lies above 440 Hz, in cents; 0 for one that was not heard.
double recordedCentsOf(const QBSong& song);

/// The hertz of that A.
double recordedAOf(const QBSong& song);

/// Of an A that lies so many cents above 440 Hz.
double hertzOfA(double cents);

/// "A = 415 Hz" for an A that lies so far above 440 Hz.
std::string concertAText(double cents);

}  // namespace korvel
