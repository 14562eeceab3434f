// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "analysis/HearingSettings.h"

namespace korvel {
struct Detection;
}

namespace korvel::cli {

class Command;
class Option;

/// Offers --sensitivity, --position, --frets and --capo, which fill the settings.
void addDetectionFlags(Command& command, HearingSettings& settings);
/// The same and --detection, with which they have no meaning when that uses no settings. What is
/// chosen so far is the default.
void addDetectionFlags(Command& command, const Detection*& detection, HearingSettings& settings);
/// Offers --a4, for recordings of one guitar.
void addConcertPitchFlag(Command& command, HearingSettings& settings);
/// Offers --what; what is chosen so far is the default.
void addPlayersFlag(Command& command, HearingSettings& settings);
/// Offers --strum, for a band.
void addStrumFlag(Command& command, HearingSettings& settings);
/// Offers --voices, of a band.
Option addVoicesFlag(Command& command, HearingSettings& settings);
/// The pattern of that name; UsageError, which lists all of them, when there is none.
const StrumPattern& strumPatternOf(const std::string& flag, const std::string& name);
/// Throws CliError when the detection needs an instrument and none is active.
void requireInstrumentFor(const Detection& detection);

}  // namespace korvel::cli
