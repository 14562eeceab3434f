// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/commands/MetreCommands.h"

#include "workflow/arranging/MetreArrangements.h"

namespace korvel {
namespace {

using platform::phrase;

template <int Beat, int Beattype>
QBSong* inMetre(QBSong& song, const std::string& title) {
  return laidIntoMetre(song, Beat, Beattype, title);
}

constexpr platform::Phrase kLaidIntoBars =
    phrase("SongHint", "Laid into bars of this metre, ringing tones as long notes");

constexpr SongCommand kRhythm[] = {
    {phrase("SongMenu", "3/4"), phrase("UndoAction", "Apply 3/4"), kLaidIntoBars, "applyRhythmn3_4",
     "extract3_4", phrase("SongLog", "3/4 Metric added."), "(3_4)", inMetre<3, 4>},
    {phrase("SongMenu", "4/4"), phrase("UndoAction", "Apply 4/4"), kLaidIntoBars, "applyRhythmn4_4",
     "extract4_4", phrase("SongLog", "4/4 Metric added"), "(4_4)", inMetre<4, 4>},
    {phrase("SongMenu", "6/8"), phrase("UndoAction", "Apply 6/8"), kLaidIntoBars, "applyRhythmn6_8",
     "extract6_8", phrase("SongLog", "6/8 Metric added."), "(6_8)", inMetre<6, 8>},
    {phrase("SongMenu", "12/8"), phrase("UndoAction", "Apply 12/8"), kLaidIntoBars,
     "applyRhythmn12_18", "extract12_8", phrase("SongLog", "12/8 Metric added."), "(12_8)",
     inMetre<12, 8>},
};

}  // namespace

std::span<const SongCommand> metreCommands() { return kRhythm; }

}  // namespace korvel
