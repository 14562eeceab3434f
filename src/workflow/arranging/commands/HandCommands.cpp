// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/commands/HandCommands.h"

#include "arrange/hands/QBLeftHandExtractorPello.h"
#include "arrange/hands/QBPlectrumExtractor.h"
#include "arrange/hands/QBRightHandExtractor.h"
#include "arrange/hands/QBToneToNextString.h"
#include "arrange/hands/TonesPushedDown.h"
#include "tab/filters/BestFingering.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/HandArrangements.h"
#include "workflow/arranging/HarmonyArrangements.h"
#include "workflow/arranging/SongFingering.h"
#include "workflow/arranging/VoiceArrangements.h"
#include "workflow/library/QBSongNode.h"

namespace korvel {
namespace {

using platform::phrase;

QBSong* voicingsSeenFourTimes(QBSong& song, const std::string&) { return extractVoicings(song, 4); }

constexpr SongCommand kStandard[] = {
    {phrase("SongMenu", "All Standard Filters"),
     kAsTitled,
     phrase("SongHint",
            "Three songs in turn: melody, bass and what rings between them, easier for the left "
            "hand, then for the right one"),
     "applyChain",
     "extractChainStandard",
     {},
     "",
     {},
     &QBSongNode::extractChainStandard},
    {phrase("SongMenu", "Detect Voicings"), kAsTitled,
     phrase("SongHint", "The grips that come at least four times, each once: what to learn first"),
     "extractVoicings", "extractVoicings", phrase("SongLog", "Voicings extracted."), "",
     voicingsSeenFourTimes},
    {phrase("SongMenu", "Simplify Left Hand"), kAsTitled,
     phrase("SongHint",
            "Each chord in a shape that four fingers hold with ease; tones beyond it go"),
     "optimizeLeftHand", "toLeftHand", phrase("SongLog", "Song optimized for left hand."), "(Lft)",
     rewrittenBy<QBLeftHandExtractorPello>},
    {phrase("SongMenu", "Simplify Right Hand"), kAsTitled,
     phrase("SongHint", "Of each chord the strings that the picking hand strikes together"),
     "optimizeRightHand", "toRightHand", phrase("SongLog", "Song optimized for right hand."),
     "(Rght)", rewrittenBy<QBRightHandExtractor>},
    {phrase("SongMenu", "Push Down Strings"),
     kAsTitled,
     phrase("SongHint",
            "The same notes higher up the neck: each on the next lower string, where that is free"),
     "pushDownStrings",
     "pushDownStrings",
     phrase("SongLog", "Voices pushed down."),
     "(Psh)",
     {rewrittenBy<QBToneToNextString>, filteredBy<TonesPushedDown>}},
    {phrase("SongMenu", "Clean Chords"), kAsTitled,
     phrase("SongHint",
            "Strummed chords without tones that only rang along by mistake; melodies would lose "
            "too much"),
     "cleanChords", "cleanChords", phrase("SongLog", "Chords cleaned."), "(Cleaned)", cleanChords},
    {phrase("SongMenu", "Find Best Fingering"),
     kAsTitled,
     phrase("SongHint", "The same notes where a hand reaches them best over the whole song"),
     "findBestFingering",
     "findBestFingering",
     phrase("SongLog", "Best fingering found."),
     "(Fng)",
     {filteredBy<BestFingering>, fingeredForHand}},
    {phrase("SongMenu", "Trim To Playable"),
     kAsTitled,
     phrase("SongHint",
            "What both hands can do: foreign tones, a bass that runs with the melody and crowded "
            "strings go; each stage is kept as a text file"),
     "trimToPlayable",
     "trimToPlayable",
     phrase("SongLog", "Song trimmed."),
     "(trimmed)",
     {trimToPlayable, trimmedForPlayers}},
};

constexpr SongCommand kPlectrum[] = {
    {phrase("SongMenu", "Extract Lead (1st)"), kAsTitled,
     phrase("SongHint",
            "A line for a pick: the highest tone, and the next one where it is on the string "
            "beside it"),
     "extractPlectrumFirst", "extractPlectrumLead",
     phrase("SongLog", "Plectrum Lead line extracted."), "(PlctLead)",
     filteredBy<QBPlectrumExtractor, 0>},
    {phrase("SongMenu", "Extract 2nd"), kAsTitled,
     phrase("SongHint", "A line for a pick below the melody, from the second highest tone"),
     "extractPlectrumSecond", "extractPlectrumSecond",
     phrase("SongLog", "Plectrum Second line extracted."), "(Plct2nd)",
     filteredBy<QBPlectrumExtractor, 1>},
    {phrase("SongMenu", "Extract 3rd"), kAsTitled,
     phrase("SongHint", "A line for a pick in the middle, from the third highest tone"),
     "extractPlectrumThird", "extractPlectrumThird",
     phrase("SongLog", "Plectrum Third line extracted."), "(Plct3rd)",
     filteredBy<QBPlectrumExtractor, 2>},
};

}  // namespace

std::span<const SongCommand> standardCommands() { return kStandard; }
std::span<const SongCommand> plectrumCommands() { return kPlectrum; }

}  // namespace korvel
